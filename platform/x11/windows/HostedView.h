#pragma once

#include "platform/View.h"
#include "platform/x11/windows/ViewDrawing.h"

#include <QPointer>
#include <QSize>
#include <functional>

class QWidget;

namespace roomlattice::platform::x11 {

enum class Hover { Entered, Left };

/// Shows one of the program's views in a widget, as long as it lives, and brings the view its input; the view must live
/// as long. The widget is as large as the view's frame, and repainted only when what the view shows has changed.
class HostedView final : public ViewHost {
 public:
  /// The widget is a child of `parent`, and not shown yet.
  HostedView(View& view, QWidget& parent);

  /// The widget goes later, as it may be in use; by then it shows nothing and tells nobody.
  ~HostedView() override;

  HostedView(const HostedView&) = delete;
  HostedView& operator=(const HostedView&) = delete;

  View& view() const { return view_; }
  QWidget& widget() const;

  /// Called when the pointer enters or leaves the widget, in place of telling the view. Never empty.
  std::function<void(Hover hover)> onHover;

  /// What closes the menu the view is in; it may end this object. Never empty.
  std::function<void()> onCancelMenuTracking = [] {};

  /// Called when what the widget shows has changed, its accessible name for one. Never empty.
  std::function<void()> onChange = [] {};

  void viewChanged() override;
  X11TextField* textField() override;
  void cancelMenuTracking() override;

 private:
  class Widget;

  QSize size() const;
  void mouseReleased(const QMouseEvent& event);

  View& view_;
  QPointer<Widget> widget_;
  ViewDrawing drawing_;
};

}  // namespace roomlattice::platform::x11
