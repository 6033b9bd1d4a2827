#include "platform/x11/connection/WindowPicture.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

// Far less than a request may have, so that neither side needs much memory for one.
constexpr std::size_t requestBytes = std::size_t{128} * 1024;

std::uint8_t depthOf(xcb_connection_t* raw, xcb_window_t window) {
  const auto geometry = replyTo(raw, xcb_get_geometry(raw, window), xcb_get_geometry_reply);
  return geometry == nullptr ? std::uint8_t{0} : geometry->depth;
}

}  // namespace

WindowPicture::WindowPicture(const NativeWindow& window)
    : raw_(window.raw()), window_(window.id()), context_(xcb_generate_id(raw_)), depth_(depthOf(raw_, window_)) {
  xcb_create_gc(raw_, context_, window_, 0, nullptr);
}

WindowPicture::~WindowPicture() {
  xcb_free_gc(raw_, context_);
}

void WindowPicture::put(const QImage& picture, const QPoint& corner) {
  const auto bytesPerLine = static_cast<std::size_t>(picture.bytesPerLine());
  const int most = static_cast<int>(std::max<std::size_t>(requestBytes / std::max<std::size_t>(bytesPerLine, 1), 1));
  for (int y = 0; y < picture.height(); y += most) {
    const int rows = std::min(most, picture.height() - y);
    xcb_put_image(raw_, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, context_, static_cast<std::uint16_t>(picture.width()),
                  static_cast<std::uint16_t>(rows), static_cast<std::int16_t>(corner.x()),
                  static_cast<std::int16_t>(corner.y() + y), 0, depth_,
                  static_cast<std::uint32_t>(bytesPerLine * static_cast<std::size_t>(rows)), picture.constScanLine(y));
  }
}

void WindowPicture::put(const PackedPicture& picture) {
  std::vector<xcb_rectangle_t> plate;
  for (const QRect& area : picture.plate()) {
    plate.push_back({static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
                     static_cast<std::uint16_t>(area.width()), static_cast<std::uint16_t>(area.height())});
  }
  // All of them first, so that what is drawn comes without a pause.
  std::vector<std::vector<std::uint32_t>> details;
  for (std::size_t index = 0; index < picture.details().size(); ++index) {
    details.push_back(picture.pixels(index));
  }
  const std::uint32_t color = picture.plateColor();
  xcb_change_gc(raw_, context_, XCB_GC_FOREGROUND, &color);
  xcb_poly_fill_rectangle(raw_, window_, context_, static_cast<std::uint32_t>(plate.size()), plate.data());
  for (std::size_t index = 0; index < details.size(); ++index) {
    const QRect& area = picture.details()[index];
    const QImage part(reinterpret_cast<const uchar*>(details[index].data()), area.width(), area.height(),
                      QImage::Format_ARGB32_Premultiplied);
    put(part, area.topLeft());
  }
}

}  // namespace roomlattice::platform::x11
