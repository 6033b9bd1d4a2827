#include "platform/x11/connection/WindowInk.h"

#include "platform/x11/connection/PixelRows.h"

namespace roomlattice::platform::x11 {
namespace {

constexpr std::uint8_t maskDepth = 8;

/// RENDER has 16 bits for each component.
xcb_render_color_t renderColor(std::uint32_t color) {
  const auto component = [color](unsigned shift) {
    return static_cast<std::uint16_t>((color >> shift & 0xffU) * 0x101U);
  };
  return {.red = component(16), .green = component(8), .blue = component(0), .alpha = component(24)};
}

/// A picture of a pixmap that goes with this object, made of the mask.
class MaskPicture {
 public:
  MaskPicture(xcb_connection_t* raw, xcb_window_t window, xcb_render_pictformat_t format, const InkMask& mask)
      : raw_(raw), pixmap_(xcb_generate_id(raw)), picture_(xcb_generate_id(raw)) {
    const QSize size = mask.area.size();
    xcb_create_pixmap(raw, maskDepth, pixmap_, window, static_cast<std::uint16_t>(size.width()),
                      static_cast<std::uint16_t>(size.height()));
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_gc(raw, context, pixmap_, 0, nullptr);
    put({.bytes = mask.coverage.data(), .size = size, .bytesPerRow = mask.bytesPerRow(), .depth = maskDepth}, raw,
        pixmap_, context, {});
    xcb_free_gc(raw, context);
    xcb_render_create_picture(raw, picture_, pixmap_, format, 0, nullptr);
  }
  ~MaskPicture() {
    xcb_render_free_picture(raw_, picture_);
    xcb_free_pixmap(raw_, pixmap_);
  }
  MaskPicture(const MaskPicture&) = delete;
  MaskPicture& operator=(const MaskPicture&) = delete;

  xcb_render_picture_t id() const { return picture_; }

 private:
  xcb_connection_t* raw_;
  xcb_pixmap_t pixmap_;
  xcb_render_picture_t picture_;
};

}  // namespace

WindowInk::WindowInk(const NativeWindow& window, xcb_visualid_t visual, PictureFormats& formats)
    : raw_(window.raw()), window_(window.id()), windowFormat_(formats.of(visual)), maskFormat_(formats.ofMasks()) {}

void WindowInk::pour(std::uint32_t color, const InkMask& mask, Ground ground) const {
  const MaskPicture picture(raw_, window_, maskFormat_, mask);
  const xcb_render_picture_t ink = xcb_generate_id(raw_);
  const xcb_render_picture_t window = xcb_generate_id(raw_);
  xcb_render_create_solid_fill(raw_, ink, renderColor(color));
  xcb_render_create_picture(raw_, window, window_, windowFormat_, 0, nullptr);
  const QRect& area = mask.area;
  // What is covered in part only is darker then by itself.
  const std::uint8_t operation = ground == Ground::Black ? XCB_RENDER_PICT_OP_SRC : XCB_RENDER_PICT_OP_OVER;
  xcb_render_composite(raw_, operation, ink, picture.id(), window, 0, 0, 0, 0, static_cast<std::int16_t>(area.x()),
                       static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                       static_cast<std::uint16_t>(area.height()));
  xcb_render_free_picture(raw_, window);
  xcb_render_free_picture(raw_, ink);
}

}  // namespace roomlattice::platform::x11
