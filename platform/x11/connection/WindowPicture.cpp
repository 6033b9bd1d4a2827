#include "platform/x11/connection/WindowPicture.h"

namespace roomlattice::platform::x11 {
namespace {

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
  xcb_put_image(raw_, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, context_, static_cast<std::uint16_t>(picture.width()),
                static_cast<std::uint16_t>(picture.height()), static_cast<std::int16_t>(corner.x()),
                static_cast<std::int16_t>(corner.y()), 0, depth_, static_cast<std::uint32_t>(picture.sizeInBytes()),
                picture.constBits());
}

}  // namespace roomlattice::platform::x11
