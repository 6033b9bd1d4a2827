#pragma once

#include "platform/x11/connection/WindowInk.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace roomlattice::platform::x11 {

/// A picture that is mostly of one colour, such as large letters on a plate, in far less memory than its pixels take.
class PackedPicture {
 public:
  /// `image` is one of 32 bits a pixel. Nothing where it has too many colours, as a photograph has.
  static std::optional<PackedPicture> of(const QImage& image);

  QSize size() const { return size_; }

  /// The pixel in the middle of the left side, and where there is nothing else, in pixels.
  std::uint32_t plateColor() const { return plateColor_; }
  std::vector<QRect> plate() const;

  /// The rest, as rectangles that lie below each other. The pixels of one, row by row.
  const std::vector<QRect>& details() const { return details_; }
  std::vector<std::uint32_t> pixels(std::size_t detail) const;

  /// Where all the details are but this opaque colour over the plate's, more or less of it, as letters are: the colour,
  /// and how much of it is where.
  std::optional<std::uint32_t> ink() const { return ink_; }
  InkMask inkMask() const;

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

  QSize size_;
  std::uint32_t plateColor_ = 0;
  std::vector<QRect> details_;
  std::vector<std::uint32_t> colors_;
  std::optional<std::uint32_t> ink_;
  std::vector<std::uint8_t> coverages_;  // how much of the ink is in each of the colours
  // Of all details, one after the other; where each begins, and where the last ends.
  std::vector<Run> runs_;
  std::vector<std::size_t> starts_{0};
};

}  // namespace roomlattice::platform::x11
