#include "platform/x11/connection/WindowPicture.h"

#include "platform/x11/connection/PixelRows.h"

#include <QRegion>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::uint8_t depthWithoutAlpha = 24;
constexpr std::uint32_t rgbMask = 0xffffff;

xcb_rectangle_t rectangleOf(const QRect& area) {
  return {static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
          static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height())};
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
  const PixelRows rows{.bytes = picture.constBits(),
                       .size = picture.size(),
                       .bytesPerRow = static_cast<std::size_t>(picture.bytesPerLine()),
                       .depth = depth_};
  x11::put(rows, window_.raw(), window_.id(), context_, corner);
}

void WindowPicture::put(const PackedPicture& picture, PictureFormats& formats) {
  if (!ink_) {
    ink_.emplace(window_, visual_, formats);
  }
  if (picture.ink() && ink_->isAvailable()) {
    putInk(picture, *ink_);
  } else {
    putDetails(picture);
  }
}

void WindowPicture::putInk(const PackedPicture& picture, const WindowInk& ink) {
  const InkMask mask = picture.inkMask();
  const bool isBlack = depth_ == depthWithoutAlpha && (picture.plateColor() & rgbMask) == 0;
  const QRegion whole(QRect(QPoint(), picture.size()));
  const QRegion plate = isBlack ? whole.subtracted(mask.area) : whole;
  fill({plate.begin(), plate.end()}, picture.plateColor());
  ink.pour(*picture.ink(), mask, isBlack ? WindowInk::Ground::Black : WindowInk::Ground::AsItIs);
}

void WindowPicture::putDetails(const PackedPicture& picture) {
  // All of them first, so that what is drawn comes without a pause.
  std::vector<std::vector<std::uint32_t>> details;
  for (std::size_t index = 0; index < picture.details().size(); ++index) {
    details.push_back(picture.pixels(index));
  }
  fill(picture.plate(), picture.plateColor());
  for (std::size_t index = 0; index < details.size(); ++index) {
    const QRect& area = picture.details()[index];
    const QImage part(reinterpret_cast<const uchar*>(details[index].data()), area.width(), area.height(),
                      QImage::Format_ARGB32_Premultiplied);
    put(part, area.topLeft());
  }
}

void WindowPicture::fill(const std::vector<QRect>& areas, std::uint32_t color) {
  std::vector<xcb_rectangle_t> rectangles;
  std::ranges::transform(areas, std::back_inserter(rectangles), rectangleOf);
  xcb_change_gc(window_.raw(), context_, XCB_GC_FOREGROUND, &color);
  xcb_poly_fill_rectangle(window_.raw(), window_.id(), context_, static_cast<std::uint32_t>(rectangles.size()),
                          rectangles.data());
}

}  // namespace roomlattice::platform::x11
