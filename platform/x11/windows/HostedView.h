#pragma once

#include "platform/View.h"
#include "platform/x11/windows/SymbolButton.h"
#include "platform/x11/windows/X11TextField.h"

#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

namespace roomlattice::platform::x11 {

/// How far what is drawn shows of what is below it.
struct Blending {
  /// Nothing is blended with what is below: the background is drawn without its transparency.
  bool solid = false;
  /// The opacity of all that is drawn.
  double opacity = 1.0;

  bool operator==(const Blending&) const = default;
};

/// Shows a view of the program's own and brings it input. It is as large as the view's frame, and repainted only when
/// what the view shows has changed. Main thread only.
class HostedView final : public QWidget, public ViewHost {
 public:
  /// The view must outlive it.
  HostedView(View& view, QWidget* parent);
  ~HostedView() override;

  View& view() { return view_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  void setBlending(const Blending& blending);

  /// Called when the pointer enters or leaves the view; without it the view itself is told.
  std::function<void(bool inside)> onHover;

  /// What closes the menu the view is in.
  std::function<void()> onCancelMenuTracking;

  void viewChanged() override;
  TextField* textField() override { return field_; }
  void cancelMenuTracking() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void makeControls();
  void updateControls();
  void updateSpinning();
  void paint(QPainter& painter, const ViewElement& element) const;
  QColor colorOf(const TextColor& color) const;

  View& view_;
  ViewContent content_;
  Blending blending_;
  // One place for each element of the content; null for what is drawn.
  std::vector<QWidget*> controls_;
  X11TextField* field_ = nullptr;
  QTimer spinning_;
  int spinnerStep_ = 0;
};

}  // namespace roomlattice::platform::x11
