#pragma once

#include "platform/x11/connection/GlyphSet.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace roomlattice::platform::x11 {

/// A picture that is mostly of one colour, such as large letters on a plate, in far less memory than its pixels take.
class PackedPicture {
 public:
  /// `image` is one of 32 bits a pixel. Nothing where it has too many colours, as a photograph has.
  static std::optional<PackedPicture> of(const QImage& image);

  QSize size() const { return size_; }

  /// The pixel in the middle of the left side, and all there is beside the details.
  std::uint32_t plateColor() const { return plateColor_; }

  /// The opaque colour that letters are of, if there is one.
  std::optional<std::uint32_t> ink() const { return ink_; }

  struct Detail {
    QRect area;  // in pixels of the picture; no two overlap
    /// The key of the detail's mask, where every pixel is a mixture of ink and plate; empty for any other detail.
    GlyphSet::Key shape;

    bool isInk() const { return !shape.isEmpty(); }
  };

  const std::vector<Detail>& details() const { return details_; }

  /// The pixels of a detail, row by row.
  std::vector<std::uint32_t> pixels(std::size_t detail) const;

  /// How much ink each pixel has, of a detail for which `isInk` holds.
  GlyphMask mask(std::size_t detail) const;

 private:
  struct Run {
    std::uint16_t color;  // its place among the colours
    std::uint16_t length;
  };
  using Places = std::unordered_map<std::uint32_t, std::uint16_t>;

  explicit PackedPicture(const QSize& size) : size_(size) {}

  bool pack(const QImage& image, const QRect& area, Places& places);
  std::optional<std::uint16_t> placeOf(std::uint32_t color, Places& places);
  void findInk();
  std::span<const Run> runsOf(std::size_t detail) const;
  bool isInk(std::size_t detail) const;

  QSize size_;
  std::uint32_t plateColor_ = 0;
  std::vector<Detail> details_;
  std::vector<std::uint32_t> colors_;
  std::optional<std::uint32_t> ink_;
  std::vector<std::optional<std::uint8_t>> coverages_;  // how much of the ink makes each of the colours
  // Of all details, one after the other; where each begins, and where the last ends.
  std::vector<Run> runs_;
  std::vector<std::size_t> starts_{0};
};

}  // namespace roomlattice::platform::x11
