#pragma once

#include "platform/x11/connection/WindowPicture.h"
#include "platform/x11/windows/ViewDrawing.h"

#include <QFont>
#include <QImage>
#include <QSize>
#include <optional>

namespace roomlattice::platform::x11 {

/// Shows one of the program's views in the window of a widget, as long as it lives; the view must live as long. While
/// nobody sees it, nothing of it is kept but what is needed to show it again soon, packed.
class OverlayPicture final : public ViewHost {
 public:
  /// `surface` has no paint engine, and has draw() called when the window is to be drawn. `window` is the same one.
  OverlayPicture(View& view, QWidget& surface, NativeWindow& window, GlyphSet& glyphs);
  ~OverlayPicture() override;
  OverlayPicture(const OverlayPicture&) = delete;
  OverlayPicture& operator=(const OverlayPicture&) = delete;

  double cornerRadius() const { return drawing_.content().cornerRadius; }

  void setBlending(const Blending& blending);

  void draw();

  void viewChanged() override;
  X11TextField* textField() override { return nullptr; }
  void cancelMenuTracking() override {}

 private:
  /// What the picture depends on besides the view and the blending.
  struct Look {
    QSize size;
    double scale = 1.0;
    qint64 palette = 0;
    QFont font;

    bool operator==(const Look&) const = default;
  };

  Look look() const;
  QImage picture() const;
  bool isStill() const;

  View& view_;
  QWidget& surface_;
  NativeWindow& window_;
  GlyphSet& glyphs_;
  ViewDrawing drawing_;
  Blending blending_;
  Look packedLook_;
  std::optional<PackedPicture> packed_;
  WindowPicture onScreen_{window_};
};

}  // namespace roomlattice::platform::x11
