#include "platform/x11/preferences/ColorWell.h"

#include "platform/x11/drawing/QtValues.h"

#include <QColorDialog>
#include <QPainter>
#include <QPainterPath>

namespace roomlattice::platform::x11 {
namespace {

constexpr QSize wellSize(44, 24);
constexpr double cornerRadius = 4.0;
constexpr int checkSide = 6;

/// What a translucent colour is seen against.
void drawChecks(QPainter& painter, const QRect& area) {
  painter.fillRect(area, Qt::white);
  for (int y = area.top(); y <= area.bottom(); y += checkSide) {
    for (int x = area.left(); x <= area.right(); x += checkSide) {
      if (((x - area.left()) / checkSide + (y - area.top()) / checkSide) % 2 != 0) {
        painter.fillRect(x, y, checkSide, checkSide, Qt::lightGray);
      }
    }
  }
}

}  // namespace

ColorWell::ColorWell(const ColorWellControl& well) : tag_(well.tag), action_(well.action) {
  setFocusPolicy(Qt::StrongFocus);
  show(toQt(well.color));
  connect(this, &QAbstractButton::clicked, this, [this] { openDialog(); });
}

ColorWell::~ColorWell() {
  delete dialog_;
}

QSize ColorWell::sizeHint() const {
  return wellSize;
}

void ColorWell::show(const QColor& color) {
  color_ = color;
  setAccessibleDescription(color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb));
  update();
}

void ColorWell::choose(const QColor& color) {
  if (color.isValid() && color != color_) {
    show(color);
    action_(tag_, fromQt(color));
  }
}

void ColorWell::openDialog() {
  if (dialog_ == nullptr) {
    dialog_ = new QColorDialog(window());
    dialog_->setOption(QColorDialog::ShowAlphaChannel);
    // The dialog of a desktop's own would not let its changes be followed as they are made.
    dialog_->setOption(QColorDialog::DontUseNativeDialog);
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    // What the colour stands for is for the other controls of the window to say; they are to stay as they are.
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setWindowTitle(QStringLiteral("Color: %1").arg(accessibleName()));
    dialog_->setCurrentColor(color_);
    connect(dialog_, &QColorDialog::currentColorChanged, this, [this](const QColor& color) { choose(color); });
    connect(dialog_, &QColorDialog::rejected, this, [this, before = color_] { choose(before); });
  }
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void ColorWell::hideEvent(QHideEvent* event) {
  // Closing the window takes the dialog along, with the colour it has.
  if (dialog_ != nullptr && !window()->isVisible()) {
    dialog_->accept();
  }
  QAbstractButton::hideEvent(event);
}

void ColorWell::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), cornerRadius, cornerRadius);
  painter.setClipPath(outline);
  if (color_.alpha() != 255) {
    drawChecks(painter, rect());
  }
  painter.fillRect(rect(), isEnabled() ? color_ : palette().color(QPalette::Disabled, QPalette::Button));
  painter.setClipping(false);
  QColor edge = palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText);
  edge.setAlphaF(hasFocus() ? 1.0F : 0.4F);
  painter.strokePath(outline, QPen(edge, hasFocus() ? 2.0 : 1.0));
}

}  // namespace roomlattice::platform::x11
