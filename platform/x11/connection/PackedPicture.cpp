#include "platform/x11/connection/PackedPicture.h"

#include <algorithm>
#include <span>

namespace roomlattice::platform::x11 {
namespace {

// As high as a detail is at most: letters have gaps above and below them, and plates have corners.
constexpr int bandHeight = 16;

std::span<const std::uint32_t> rowOf(const QImage& image, int y) {
  return {reinterpret_cast<const std::uint32_t*>(image.constScanLine(y)), static_cast<std::size_t>(image.width())};
}

/// What of these rows is not of that colour; empty where all of it is.
QRect detailOf(const QImage& image, int top, int height, std::uint32_t color) {
  int left = image.width();
  int end = 0;
  for (int y = top; y < top + height; ++y) {
    const auto row = rowOf(image, y);
    const auto differs = [color](std::uint32_t pixel) { return pixel != color; };
    const auto first = std::ranges::find_if(row, differs);
    const auto last = std::find_if(row.rbegin(), row.rend(), differs);
    left = std::min(left, static_cast<int>(first - row.begin()));
    end = std::max(end, static_cast<int>(row.rend() - last));
  }
  return {left, top, std::max(end - left, 0), height};
}

}  // namespace

PackedPicture::PackedPicture(const QImage& image) : size_(image.size()) {
  if (image.isNull()) {
    return;
  }
  plateColor_ = rowOf(image, image.height() / 2).front();
  for (int top = 0; top < image.height(); top += bandHeight) {
    const QRect detail = detailOf(image, top, std::min(bandHeight, image.height() - top), plateColor_);
    if (!detail.isEmpty()) {
      pack(image, detail);
    }
  }
  runs_.shrink_to_fit();
}

void PackedPicture::pack(const QImage& image, const QRect& area) {
  const std::size_t start = runs_.size();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (const std::uint32_t color :
         rowOf(image, y).subspan(static_cast<std::size_t>(area.left()), static_cast<std::size_t>(area.width()))) {
      if (runs_.size() == start || runs_.back().color != color) {
        runs_.push_back({color, 0});
      }
      ++runs_.back().length;
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
  std::vector<std::uint32_t> pixels;
  pixels.reserve(static_cast<std::size_t>(details_.at(detail).width()) *
                 static_cast<std::size_t>(details_.at(detail).height()));
  for (std::size_t index = starts_[detail]; index < starts_[detail + 1]; ++index) {
    pixels.insert(pixels.end(), runs_[index].length, runs_[index].color);
  }
  return pixels;
}

}  // namespace roomlattice::platform::x11
