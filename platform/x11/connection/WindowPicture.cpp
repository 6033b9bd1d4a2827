#include "platform/x11/connection/WindowPicture.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

// Far less than a request may have, so that neither side needs much memory for one.
constexpr qsizetype requestBytes = qsizetype{128} * 1024;

xcb_rectangle_t rectangleOf(const QRect& area) {
  return {static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
          static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height())};
}

/// A detail that is sent as it is.
struct Copy {
  QRect area;
  std::vector<std::uint32_t> pixels;
};

enum class Ink { Poured, Copied };

std::vector<Copy> copiesOf(const PackedPicture& picture, Ink ink) {
  std::vector<Copy> copies;
  for (std::size_t detail = 0; detail < picture.details().size(); ++detail) {
    if (ink == Ink::Copied || !picture.details()[detail].isInk()) {
      copies.push_back({.area = picture.details()[detail].area, .pixels = picture.pixels(detail)});
    }
  }
  return copies;
}

}  // namespace

WindowPicture::WindowPicture(const NativeWindow& window) : window_(window), context_(xcb_generate_id(window.raw())) {
  xcb_connection_t* raw = window_.raw();
  xcb_create_gc(raw, context_, window_.id(), 0, nullptr);
  // Both at once, for one wait.
  const auto geometryAsked = xcb_get_geometry(raw, window_.id());
  const auto attributesAsked = xcb_get_window_attributes(raw, window_.id());
  if (const auto geometry = replyTo(raw, geometryAsked, xcb_get_geometry_reply)) {
    depth_ = geometry->depth;
  }
  if (const auto attributes = replyTo(raw, attributesAsked, xcb_get_window_attributes_reply)) {
    visual_ = attributes->visual;
  }
}

WindowPicture::~WindowPicture() {
  xcb_free_gc(window_.raw(), context_);
}

void WindowPicture::put(const QImage& picture, const QPoint& corner) {
  const qsizetype rowBytes = std::max<qsizetype>(picture.bytesPerLine(), 1);
  const int most = static_cast<int>(std::max<qsizetype>(requestBytes / rowBytes, 1));
  for (int y = 0; y < picture.height(); y += most) {
    const int height = std::min(most, picture.height() - y);
    xcb_put_image(window_.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_.id(), context_,
                  static_cast<std::uint16_t>(picture.width()), static_cast<std::uint16_t>(height),
                  static_cast<std::int16_t>(corner.x()), static_cast<std::int16_t>(corner.y() + y), 0, depth_,
                  static_cast<std::uint32_t>(rowBytes * height), picture.constScanLine(y));
  }
}

void WindowPicture::put(const PackedPicture& picture, GlyphSet& glyphs) {
  if (!ink_) {
    ink_.emplace(window_, visual_, glyphs);
  }
  const bool poursInk = picture.ink() && ink_->isAvailable();
  // Before anything is drawn, so that what is drawn comes without a pause.
  const std::vector<Copy> copies = copiesOf(picture, poursInk ? Ink::Poured : Ink::Copied);
  QRegion around(QRect(QPoint(), picture.size()));
  for (const Copy& copy : copies) {
    around -= copy.area;
  }
  fill(around, picture.plateColor());
  if (poursInk) {
    ink_->pour(picture);
  }
  for (const Copy& copy : copies) {
    put(QImage(reinterpret_cast<const uchar*>(copy.pixels.data()), copy.area.width(), copy.area.height(),
               QImage::Format_ARGB32_Premultiplied),
        copy.area.topLeft());
  }
}

void WindowPicture::fill(const QRegion& areas, std::uint32_t color) {
  std::vector<xcb_rectangle_t> rectangles;
  std::ranges::transform(areas, std::back_inserter(rectangles), rectangleOf);
  xcb_change_gc(window_.raw(), context_, XCB_GC_FOREGROUND, &color);
  xcb_poly_fill_rectangle(window_.raw(), window_.id(), context_, static_cast<std::uint32_t>(rectangles.size()),
                          rectangles.data());
}

}  // namespace roomlattice::platform::x11
