#include "platform/x11/connection/PackedPicture.h"

#include "platform/x11/connection/PictureDetails.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::size_t maximumOf16Bits = std::numeric_limits<std::uint16_t>::max();

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

/// The same for shapes of the same size that cover the same.
GlyphSet::Key keyOf(const GlyphMask& mask) {
  return QCryptographicHash::hash(QByteArrayView(mask.coverage), QCryptographicHash::Sha1) +
         QByteArray::number(mask.size.width());
}

/// How much of `ink` over `plate` makes `color`; nothing where none does. Both sides of it were rounded.
std::optional<std::uint8_t> coverageOf(std::uint32_t color, std::uint32_t ink, std::uint32_t plate) {
  const int whole = distance(ink, plate);
  const int coverage = (distance(color, plate) * int{opaque} + whole / 2) / whole;
  if (coverage > int{opaque}) {
    return std::nullopt;
  }
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
  for (const QRect& detail : detailsOf(image, packed.plateColor_)) {
    if (!packed.pack(image, detail, places)) {
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
  details_.push_back({.area = area, .shape = {}});
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
  std::uint32_t farthest = plateColor_;
  for (const std::uint32_t color : colors_) {
    if (color >> 24U == opaque && distance(color, plateColor_) > distance(farthest, plateColor_)) {
      farthest = color;
    }
  }
  if (farthest == plateColor_) {
    return;
  }
  ink_ = farthest;
  std::ranges::transform(colors_, std::back_inserter(coverages_),
                         [&](std::uint32_t color) { return coverageOf(color, farthest, plateColor_); });
  for (std::size_t detail = 0; detail < details_.size(); ++detail) {
    if (isInk(detail)) {
      details_[detail].shape = keyOf(mask(detail));
    }
  }
}

std::span<const PackedPicture::Run> PackedPicture::runsOf(std::size_t detail) const {
  return std::span(runs_).subspan(starts_.at(detail), starts_.at(detail + 1) - starts_[detail]);
}

bool PackedPicture::isInk(std::size_t detail) const {
  return std::ranges::all_of(runsOf(detail), [this](const Run& run) { return coverages_[run.color].has_value(); });
}

std::vector<std::uint32_t> PackedPicture::pixels(std::size_t detail) const {
  const QSize size = details_.at(detail).area.size();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()));
  std::uint32_t* next = pixels.data();
  for (const Run& run : runsOf(detail)) {
    next = std::fill_n(next, run.length, colors_[run.color]);
  }
  return pixels;
}

GlyphMask PackedPicture::mask(std::size_t detail) const {
  GlyphMask mask{.size = details_.at(detail).area.size(), .coverage = {}};
  const auto width = static_cast<std::size_t>(mask.size.width());
  mask.coverage.resize(mask.bytesPerRow() * static_cast<std::size_t>(mask.size.height()));
  std::uint8_t* row = mask.coverage.data();
  std::size_t x = 0;
  for (const Run& run : runsOf(detail)) {
    x = static_cast<std::size_t>(std::fill_n(row + x, run.length, coverages_[run.color].value_or(0)) - row);
    if (x == width) {
      x = 0;
      row += mask.bytesPerRow();
    }
  }
  return mask;
}

}  // namespace roomlattice::platform::x11
