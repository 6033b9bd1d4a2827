#include "platform/x11/connection/PictureDetails.h"

#include <algorithm>
#include <iterator>

namespace roomlattice::platform::x11 {
namespace {

// What is nearer to each other is one detail, so that small letters are a word.
constexpr int gap = 4;

// A server of the first days takes four times as many bytes at once.
constexpr int maximumPixels = 65536;

/// Where something begins, and where it ends.
struct Span {
  int begin = 0;
  int end = 0;

  int length() const { return end - begin; }
};

/// The spans of what is not 0, each of which is parted from the next by a gap.
std::vector<Span> spansOf(const std::vector<std::uint8_t>& isTaken) {
  std::vector<Span> spans;
  for (int at = 0; at < static_cast<int>(isTaken.size()); ++at) {
    if (isTaken[static_cast<std::size_t>(at)] == 0) {
      continue;
    }
    if (spans.empty() || at - spans.back().end >= gap) {
      spans.push_back({.begin = at, .end = at});
    }
    spans.back().end = at + 1;
  }
  return spans;
}

class Cutter {
 public:
  Cutter(const QImage& image, std::uint32_t plate) : image_(image), plate_(plate) {}

  std::vector<Span> bands() const {
    std::vector<std::uint8_t> isTaken(static_cast<std::size_t>(image_.height()));
    for (int y = 0; y < image_.height(); ++y) {
      isTaken[static_cast<std::size_t>(y)] = isDetailed(y, {.begin = 0, .end = image_.width()}) ? 1 : 0;
    }
    return spansOf(isTaken);
  }

  std::vector<Span> columns(const Span& band) const {
    std::vector<std::uint8_t> isTaken(static_cast<std::size_t>(image_.width()));
    for (int y = band.begin; y < band.end; ++y) {
      const std::uint32_t* row = rowOf(image_, y);
      for (std::size_t x = 0; x < isTaken.size(); ++x) {
        isTaken[x] |= row[x] != plate_ ? 1U : 0U;
      }
    }
    return spansOf(isTaken);
  }

  /// Without the rows above and below that have nothing of it.
  QRect trimmed(Span band, const Span& column) const {
    while (!isDetailed(band.begin, column)) {
      ++band.begin;
    }
    while (!isDetailed(band.end - 1, column)) {
      --band.end;
    }
    return {column.begin, band.begin, column.length(), band.length()};
  }

 private:
  bool isDetailed(int y, const Span& column) const {
    const std::uint32_t* row = rowOf(image_, y);
    return std::any_of(row + column.begin, row + column.end, [this](std::uint32_t pixel) { return pixel != plate_; });
  }

  const QImage& image_;
  std::uint32_t plate_;
};

void addInPieces(const QRect& detail, std::vector<QRect>& details) {
  const int most = std::max(maximumPixels / detail.width(), 1);
  for (int top = 0; top < detail.height(); top += most) {
    details.emplace_back(detail.left(), detail.top() + top, detail.width(), std::min(most, detail.height() - top));
  }
}

}  // namespace

std::vector<QRect> detailsOf(const QImage& image, std::uint32_t plate) {
  const Cutter cutter(image, plate);
  std::vector<QRect> details;
  for (const Span& band : cutter.bands()) {
    for (const Span& column : cutter.columns(band)) {
      addInPieces(cutter.trimmed(band, column), details);
    }
  }
  return details;
}

}  // namespace roomlattice::platform::x11
