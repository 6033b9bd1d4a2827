#include "platform/x11/connection/PackedPicture.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace roomlattice::platform::x11 {
namespace {

// As high as a detail is at most: letters have gaps above and below them, and plates have corners.
constexpr int bandHeight = 16;

constexpr std::size_t maximumOf16Bits = std::numeric_limits<std::uint16_t>::max();

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

constexpr unsigned opaque = 0xff;

int component(std::uint32_t color, unsigned index) {
  return static_cast<int>(color >> (8 * index) & 0xffU);
}

int distance(std::uint32_t a, std::uint32_t b) {
  int sum = 0;
  for (unsigned index = 0; index < 4; ++index) {
    sum += std::abs(component(a, index) - component(b, index));
  }
  return sum;
}

/// How much of `ink` over `plate` makes `color`; nothing where none does. Both sides of it were rounded.
std::optional<std::uint8_t> coverageOf(std::uint32_t color, std::uint32_t ink, std::uint32_t plate) {
  const int whole = distance(ink, plate);
  const int coverage = (distance(color, plate) * int{opaque} + whole / 2) / whole;
  for (unsigned index = 0; index < 4; ++index) {
    const int from = component(plate, index);
    const int expected = from + (component(ink, index) - from) * coverage / int{opaque};
    if (std::abs(component(color, index) - expected) > 1) {
      return std::nullopt;
    }
  }
  return static_cast<std::uint8_t>(coverage);
}

}  // namespace

std::optional<PackedPicture> PackedPicture::of(const QImage& image) {
  PackedPicture packed(image.size());
  if (image.isNull()) {
    return packed;
  }
  Places places;
  packed.plateColor_ = *rowOf(image, image.height() / 2);
  for (int top = 0; top < image.height(); top += bandHeight) {
    const int height = std::min(bandHeight, image.height() - top);
    const QRect detail = detailOf(image, top, height, packed.plateColor_);
    if (!detail.isEmpty() && !packed.pack(image, detail, places)) {
      return std::nullopt;
    }
  }
  packed.findInk();
  packed.colors_.shrink_to_fit();
  packed.runs_.shrink_to_fit();
  return packed;
}

bool PackedPicture::pack(const QImage& image, const QRect& area, Places& places) {
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const std::uint32_t* pixel = rowOf(image, y) + area.left();
    const std::uint32_t* const end = pixel + area.width();
    while (pixel < end) {
      const std::uint32_t* const start = pixel;
      const std::uint32_t* const longest = start + std::min<std::ptrdiff_t>(end - start, maximumOf16Bits);
      while (pixel < longest && *pixel == *start) {
        ++pixel;
      }
      const std::optional<std::uint16_t> color = placeOf(*start, places);
      if (!color) {
        return false;
      }
      runs_.push_back({*color, static_cast<std::uint16_t>(pixel - start)});
    }
  }
  details_.push_back(area);
  starts_.push_back(runs_.size());
  return true;
}

std::optional<std::uint16_t> PackedPicture::placeOf(std::uint32_t color, Places& places) {
  const auto [entry, isNew] = places.try_emplace(color, static_cast<std::uint16_t>(colors_.size()));
  if (isNew) {
    if (colors_.size() > maximumOf16Bits) {
      return std::nullopt;
    }
    colors_.push_back(color);
  }
  return entry->second;
}

void PackedPicture::findInk() {
  const auto fromPlate = [this](std::uint32_t color) { return distance(color, plateColor_); };
  const auto farthest = std::ranges::max_element(colors_, {}, fromPlate);
  if (farthest == colors_.end() || *farthest == plateColor_ || *farthest >> 24U != opaque) {
    return;
  }
  for (const std::uint32_t color : colors_) {
    const std::optional<std::uint8_t> coverage = coverageOf(color, *farthest, plateColor_);
    if (!coverage) {
      coverages_.clear();
      return;
    }
    coverages_.push_back(*coverage);
  }
  ink_ = *farthest;
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
    next = std::fill_n(next, runs_[index].length, colors_[runs_[index].color]);
  }
  return pixels;
}

InkMask PackedPicture::inkMask() const {
  InkMask mask;
  for (const QRect& detail : details_) {
    mask.area |= detail;
  }
  const std::size_t bytesPerRow = mask.bytesPerRow();
  mask.coverage.resize(bytesPerRow * static_cast<std::size_t>(mask.area.height()));
  for (std::size_t detail = 0; detail < details_.size(); ++detail) {
    const QPoint corner = details_[detail].topLeft() - mask.area.topLeft();
    std::uint8_t* row = mask.coverage.data() + static_cast<std::size_t>(corner.y()) * bytesPerRow +
                        static_cast<std::size_t>(corner.x());
    const auto width = static_cast<std::size_t>(details_[detail].width());
    std::size_t x = 0;
    for (std::size_t index = starts_[detail]; index < starts_[detail + 1]; ++index) {
      const Run& run = runs_[index];
      const std::uint8_t coverage = coverages_[run.color];
      if (run.length == 1) {
        // Most are, at the edges of letters.
        row[x] = coverage;
      } else if (coverage != 0) {
        std::fill_n(row + x, run.length, coverage);
      }
      x += run.length;
      if (x == width) {
        x = 0;
        row += bytesPerRow;
      }
    }
  }
  return mask;
}

}  // namespace roomlattice::platform::x11
