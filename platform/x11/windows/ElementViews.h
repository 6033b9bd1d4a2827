#pragma once

#include "platform/View.h"
#include "platform/x11/windows/X11TextField.h"

#include <memory>

class QPainter;
class QWidget;

namespace roomlattice::platform::x11 {

/// The form of one element of a view in the widget that shows the view: painted with it, or a child of it.
class ElementView {
 public:
  virtual ~ElementView() = default;

  /// Shows `element`, which is of the kind this was made for, in a view of that height.
  virtual void update(const ViewElement& element, double viewHeight) = 0;

  /// Draws the element, unless it is a child.
  virtual void paint(QPainter&) {}

  /// The text field, for the element that has one.
  virtual X11TextField* textField() { return nullptr; }
};

/// `view` is the one whose element it is: it hears of clicks and of the editor's commands. `widget` is the one that
/// shows the view; it must outlive the element, whose child stays in it.
std::unique_ptr<ElementView> makeElementView(const ViewElement& element, View& view, QWidget& widget);

}  // namespace roomlattice::platform::x11
