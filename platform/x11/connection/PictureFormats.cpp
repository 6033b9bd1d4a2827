#include "platform/x11/connection/PictureFormats.h"

#include <utility>
#include <xcb/xcb_renderutil.h>

namespace roomlattice::platform::x11 {

xcb_render_pictformat_t PictureFormats::of(xcb_visualid_t visual) {
  const auto* found = all() == nullptr ? nullptr : xcb_render_util_find_visual_format(all(), visual);
  return found == nullptr ? 0 : found->format;
}

xcb_render_pictformat_t PictureFormats::ofMasks() {
  const auto* found = all() == nullptr ? nullptr : xcb_render_util_find_standard_format(all(), XCB_PICT_STANDARD_A_8);
  return found == nullptr ? 0 : found->id;
}

const xcb_render_query_pict_formats_reply_t* PictureFormats::all() {
  if (!std::exchange(isAsked_, true)) {
    xcb_connection_t* raw = connection_.raw();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(raw, &xcb_render_id);
    if (extension != nullptr && extension->present != 0) {
      all_ = replyTo(raw, xcb_render_query_pict_formats(raw), xcb_render_query_pict_formats_reply);
    }
  }
  return all_.get();
}

}  // namespace roomlattice::platform::x11
