#pragma once

#include "platform/Controls.h"

#include <QAbstractButton>
#include <QColor>
#include <QPointer>

class QColorDialog;

namespace roomlattice::platform::x11 {

/// A button that shows a colour and opens a dialog to change it, opacity included. The action is called at every change
/// in the dialog; cancelling the dialog brings the colour back that was there when it opened.
class ColorWell final : public QAbstractButton {
 public:
  explicit ColorWell(const ColorWellControl& well);
  ~ColorWell() override;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void openDialog();
  void choose(const QColor& color);
  void show(const QColor& color);

  std::int64_t tag_;
  std::function<void(std::int64_t, Color)> action_;
  QColor color_;
  QPointer<QColorDialog> dialog_;
};

}  // namespace roomlattice::platform::x11
