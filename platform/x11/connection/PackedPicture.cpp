#include "platform/x11/connection/PackedPicture.h"

#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

// As high as a detail is at most: letters have gaps above and below them, and plates have corners.
constexpr int bandHeight = 16;

const std::uint32_t* rowOf(const QImage& image, int y) {
  return reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
}

/// What of these rows is not of that colour; empty where all of it is.
QRect detailOf(const QImage& image, int top, int height, std::uint32_t color) {
  int left = image.width();
  int end = 0;
  for (int y = top; y < top + height; ++y) {
    const std::uint32_t* row = rowOf(image, y);
    int start = 0;
    while (start < left && row[start] == color) {
      ++start;
    }
    left = start;
    int last = image.width();
    while (last > end && row[last - 1] == color) {
      --last;
    }
    end = last;
  }
  return {left, top, std::max(end - left, 0), height};
}

}  // namespace

PackedPicture::PackedPicture(const QImage& image) : size_(image.size()) {
  if (image.isNull()) {
    return;
  }
  plateColor_ = *rowOf(image, image.height() / 2);
  for (int top = 0; top < image.height(); top += bandHeight) {
    const QRect detail = detailOf(image, top, std::min(bandHeight, image.height() - top), plateColor_);
    if (!detail.isEmpty()) {
      pack(image, detail);
    }
  }
  runs_.shrink_to_fit();
}

void PackedPicture::pack(const QImage& image, const QRect& area) {
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const std::uint32_t* pixel = rowOf(image, y) + area.left();
    const std::uint32_t* const end = pixel + area.width();
    while (pixel < end) {
      const std::uint32_t* const start = pixel;
      const std::uint32_t color = *start;
      while (pixel < end && *pixel == color) {
        ++pixel;
      }
      runs_.push_back({color, static_cast<std::uint32_t>(pixel - start)});
    }
  }
  details_.push_back(area);
  starts_.push_back(runs_.size());
}

std::vector<QRect> PackedPicture::plate() const {
  std::vector<QRect> plate;
  const auto add = [&plate](int left, int top, int width, int height) {
    if (width > 0 && height > 0) {
      plate.emplace_back(left, top, width, height);
    }
  };
  int top = 0;
  for (const QRect& detail : details_) {
    add(0, top, size_.width(), detail.top() - top);
    add(0, detail.top(), detail.left(), detail.height());
    add(detail.right() + 1, detail.top(), size_.width() - detail.right() - 1, detail.height());
    top = detail.bottom() + 1;
  }
  add(0, top, size_.width(), size_.height() - top);
  return plate;
}

std::vector<std::uint32_t> PackedPicture::pixels(std::size_t detail) const {
  const QSize size = details_.at(detail).size();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()));
  std::uint32_t* next = pixels.data();
  for (std::size_t index = starts_[detail]; index < starts_[detail + 1]; ++index) {
    next = std::fill_n(next, runs_[index].length, runs_[index].color);
  }
  return pixels;
}

}  // namespace roomlattice::platform::x11
