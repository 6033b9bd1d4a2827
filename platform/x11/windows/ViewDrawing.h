#pragma once

#include "platform/View.h"
#include "platform/x11/windows/ElementViews.h"

#include <QString>
#include <memory>
#include <vector>

class QPainter;
class QWidget;

namespace roomlattice::platform::x11 {

/// How far what is drawn shows of what is below it.
struct Blending {
  /// Nothing is blended with what is below: the background is drawn without its transparency, and to the corners, which
  /// are for the window's shape to cut.
  bool solid = false;
  /// The opacity of all that is drawn.
  double opacity = 1.0;

  bool operator==(const Blending&) const = default;
};

/// What a view shows, in the form in which it is drawn.
class ViewDrawing {
 public:
  /// `widget` shows the view, and gives the drawing its colours. Both must outlive this object.
  ViewDrawing(View& view, QWidget& widget);

  const ViewContent& content() const { return content_; }

  /// The first text in it, in one line.
  QString visibleText() const;

  /// The same where there is no room for it; otherwise empty.
  QString cutText() const;

  /// Takes over what the view shows now; false when that is the same as before.
  bool update();

  /// Draws all of it but the elements that are widgets.
  void paint(QPainter& painter, const Blending& blending = {}) const;

  X11TextField* textField() const;

 private:
  View& view_;
  ViewContent content_;
  Size size_;
  std::vector<std::unique_ptr<ElementView>> elements_;
};

}  // namespace roomlattice::platform::x11
