#pragma once

#include "platform/x11/connection/PictureFormats.h"

#include <QByteArray>
#include <QSize>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>
#include <xcb/render.h>

namespace roomlattice::platform::x11 {

/// How much of each pixel of a shape is covered, 0–255, row by row; each row is followed by as many unused bytes as
/// make its length a multiple of four.
struct GlyphMask {
  QSize size;  // in pixels
  std::vector<std::uint8_t> coverage;

  std::size_t bytesPerRow() const { return (static_cast<std::size_t>(size.width()) + 3) / 4 * 4; }
};

/// Shapes that the server keeps, to be drawn in any colour without being sent each time (glyphs of its RENDER
/// extension). It keeps those that were wanted last, up to a megabyte of them, for all windows together.
class GlyphSet {
 public:
  /// For what is drawn by this connection. Both must outlive it.
  GlyphSet(xcb_connection_t* raw, PictureFormats& formats) : raw_(raw), formats_(formats) {}
  ~GlyphSet();
  GlyphSet(const GlyphSet&) = delete;
  GlyphSet& operator=(const GlyphSet&) = delete;

  PictureFormats& formats() { return formats_; }

  /// The server's number for the set; 0 where it has no such sets. The first call waits for the server where the
  /// formats do.
  xcb_render_glyphset_t id();

  /// Stands for a shape: equal shapes have equal keys, and different ones have different keys.
  using Key = QByteArray;

  /// The number of a shape within the set, which must not be 0, until the next `trim`. The shape is asked for, at once,
  /// where the server is to be sent it.
  std::uint32_t glyph(const Key& key, const std::function<GlyphMask()>& shape);

  /// To be called when what is to be drawn has been queued: the server may forget what was not wanted for long.
  void trim();

 private:
  struct Kept {
    std::uint32_t number = 0;
    std::size_t bytes = 0;
    std::uint64_t wanted = 0;  // the later, the more
  };

  Kept send(const GlyphMask& mask);

  xcb_connection_t* raw_;
  PictureFormats& formats_;
  xcb_render_glyphset_t id_ = 0;
  std::unordered_map<Key, Kept> kept_;
  std::size_t bytes_ = 0;
  std::uint32_t lastNumber_ = 0;
  std::uint64_t clock_ = 0;
};

}  // namespace roomlattice::platform::x11
