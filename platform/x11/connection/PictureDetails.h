#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <vector>

namespace roomlattice::platform::x11 {

/// A row of an image of 32 bits a pixel.
inline const std::uint32_t* rowOf(const QImage& image, int y) {
  return reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
}

/// The parts of a picture that are not of one colour, `plate`, as rectangles that do not overlap, from top to bottom
/// and from left to right: letters for the most part, each as small as it can be. None has more than 65,536 pixels.
/// `image` is one of 32 bits a pixel.
std::vector<QRect> detailsOf(const QImage& image, std::uint32_t plate);

}  // namespace roomlattice::platform::x11
