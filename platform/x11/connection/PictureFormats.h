#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <xcb/render.h>

namespace roomlattice::platform::x11 {

/// The formats by which the server's RENDER extension knows the pixels of windows and of masks. They are the same for
/// all windows and connections, so the server is asked once, when one is first wanted.
class PictureFormats {
 public:
  /// The connection must outlive it.
  explicit PictureFormats(X11Connection& connection) : connection_(connection) {}

  /// That of windows of the visual; 0 where the server has none, or lacks the extension. The first call waits for the
  /// server, and so does that of `ofMasks`.
  xcb_render_pictformat_t of(xcb_visualid_t visual);

  /// That of masks of eight bits; 0 likewise.
  xcb_render_pictformat_t ofMasks();

 private:
  const xcb_render_query_pict_formats_reply_t* all();

  X11Connection& connection_;
  bool isAsked_ = false;
  XcbPointer<xcb_render_query_pict_formats_reply_t> all_;
};

}  // namespace roomlattice::platform::x11
