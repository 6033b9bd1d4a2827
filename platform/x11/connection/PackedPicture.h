#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <cstdint>
#include <vector>

namespace roomlattice::platform::x11 {

/// A picture that is mostly of one colour, such as large letters on a plate, in far less memory than its pixels take.
class PackedPicture {
 public:
  /// `image` is one of 32 bits a pixel.
  explicit PackedPicture(const QImage& image);

  QSize size() const { return size_; }

  /// The pixel in the middle of the left side, and where there is nothing else, in pixels.
  std::uint32_t plateColor() const { return plateColor_; }
  std::vector<QRect> plate() const;

  /// The rest, as rectangles that lie below each other. The pixels of one, row by row.
  const std::vector<QRect>& details() const { return details_; }
  std::vector<std::uint32_t> pixels(std::size_t detail) const;

 private:
  struct Run {
    std::uint32_t color;
    std::uint32_t length;
  };

  void pack(const QImage& image, const QRect& area);

  QSize size_;
  std::uint32_t plateColor_ = 0;
  std::vector<QRect> details_;
  // Of all details, one after the other; where each begins, and where the last ends.
  std::vector<Run> runs_;
  std::vector<std::size_t> starts_{0};
};

}  // namespace roomlattice::platform::x11
