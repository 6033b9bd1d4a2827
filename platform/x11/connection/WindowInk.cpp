#include "platform/x11/connection/WindowInk.h"

#include <cstddef>
#include <memory>
#include <vector>
#include <xcb/xcb_renderutil.h>

namespace roomlattice::platform::x11 {
namespace {

/// RENDER has 16 bits for each component.
xcb_render_color_t renderColor(std::uint32_t color) {
  const auto component = [color](unsigned shift) {
    return static_cast<std::uint16_t>((color >> shift & 0xffU) * 0x101U);
  };
  return {.red = component(16), .green = component(8), .blue = component(0), .alpha = component(24)};
}

struct TextDeleter {
  void operator()(xcb_render_util_composite_text_stream_t* text) const { xcb_render_util_composite_text_free(text); }
};
using Text = std::unique_ptr<xcb_render_util_composite_text_stream_t, TextDeleter>;

/// What is but ink, each at its place, as a text of glyphs.
Text textOf(const PackedPicture& picture, GlyphSet& glyphs) {
  const std::vector<PackedPicture::Detail>& details = picture.details();
  Text text(xcb_render_util_composite_text_stream(glyphs.id(), static_cast<std::uint32_t>(details.size()), 0));
  QPoint pen;
  for (std::size_t index = 0; index < details.size(); ++index) {
    if (!details[index].isInk()) {
      continue;
    }
    const QPoint step = details[index].area.topLeft() - pen;
    pen += step;
    const std::uint32_t glyph = glyphs.glyph(details[index].shape, [&] { return picture.mask(index); });
    xcb_render_util_glyphs_32(text.get(), static_cast<std::int16_t>(step.x()), static_cast<std::int16_t>(step.y()), 1,
                              &glyph);
  }
  return text;
}

}  // namespace

WindowInk::WindowInk(const NativeWindow& window, xcb_visualid_t visual, GlyphSet& glyphs)
    : raw_(window.raw()), window_(window.id()), windowFormat_(glyphs.formats().of(visual)), glyphs_(glyphs) {}

void WindowInk::pour(const PackedPicture& picture) const {
  const Text text = textOf(picture, glyphs_);
  const xcb_render_picture_t ink = xcb_generate_id(raw_);
  const xcb_render_picture_t window = xcb_generate_id(raw_);
  xcb_render_create_solid_fill(raw_, ink, renderColor(picture.ink().value()));
  xcb_render_create_picture(raw_, window, window_, windowFormat_, 0, nullptr);
  xcb_render_util_composite_text(raw_, XCB_RENDER_PICT_OP_OVER, ink, window, 0, 0, 0, text.get());
  xcb_render_free_picture(raw_, window);
  xcb_render_free_picture(raw_, ink);
  glyphs_.trim();
}

}  // namespace roomlattice::platform::x11
