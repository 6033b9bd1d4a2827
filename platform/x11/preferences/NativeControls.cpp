#include "platform/x11/preferences/NativeControls.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/preferences/ColorWell.h"
#include "platform/x11/preferences/PageLabel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QToolTip>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

using WidgetPointer = std::unique_ptr<QWidget>;

WidgetPointer make(const LabelControl& label) {
  return std::make_unique<PageLabel>(label);
}

/// Shares of a whole are percentages, as people say them.
QString spoken(double value, const SliderControl& control) {
  return control.maximum <= 1.0 ? QStringLiteral("%1 %").arg(std::lround(value * 100.0))
                                : QString::number(value, 'g', 6);
}

/// At the slider while it is moved, and as its tool tip later.
void tellValue(QSlider& slider, const QString& value) {
  slider.setToolTip(value);
  slider.setAccessibleDescription(value);
  if (slider.isVisible()) {
    QToolTip::showText(slider.mapToGlobal(QPoint(slider.width(), 0)), value, &slider);
  }
}

/// Sliders count in whole steps: hundredths where the range is small, ones otherwise. The values are decimal numbers
/// then, and what a screen reader says makes sense.
WidgetPointer make(const SliderControl& control) {
  const double stepsPerUnit = control.maximum - control.minimum < 10.0 ? 100.0 : 1.0;
  const auto toSteps = [stepsPerUnit](double value) { return static_cast<int>(std::lround(value * stepsPerUnit)); };
  auto slider = std::make_unique<QSlider>(Qt::Horizontal);
  slider->setRange(toSteps(control.minimum), toSteps(control.maximum));
  slider->setValue(toSteps(control.value));
  tellValue(*slider, spoken(control.value, control));
  QObject::connect(slider.get(), &QSlider::valueChanged, slider.get(),
                   [control, stepsPerUnit, told = slider.get()](int steps) {
                     tellValue(*told, spoken(steps / stepsPerUnit, control));
                     control.action(steps / stepsPerUnit);
                   });
  return slider;
}

Qt::CheckState checkStateOf(CheckState state) {
  switch (state) {
    case CheckState::Off:
      return Qt::Unchecked;
    case CheckState::On:
      return Qt::Checked;
    case CheckState::Mixed:
      return Qt::PartiallyChecked;
  }
  return Qt::Unchecked;
}

WidgetPointer make(const CheckBoxControl& control) {
  auto box = std::make_unique<QCheckBox>(withoutShortcuts(toQt(control.title)));
  box->setCheckState(checkStateOf(control.state));
  // From the mixed state a click leads to one of the others.
  box->setTristate(false);
  QObject::connect(box.get(), &QCheckBox::toggled, box.get(),
                   [action = control.action](bool on) { action(on ? CheckState::On : CheckState::Off); });
  return box;
}

WidgetPointer make(const PopUpControl& control) {
  auto popUp = std::make_unique<QComboBox>();
  for (const std::string& item : control.items) {
    popUp->addItem(toQt(item));
  }
  popUp->setCurrentIndex(control.selectedIndex);
  // Also where the user chooses the item that is selected already.
  QObject::connect(popUp.get(), &QComboBox::activated, popUp.get(), control.action);
  return popUp;
}

WidgetPointer make(const ColorWellControl& control) {
  return std::make_unique<ColorWell>(control);
}

WidgetPointer make(const PushButtonControl& control) {
  auto button = std::make_unique<QPushButton>(withoutShortcuts(toQt(control.title)));
  QObject::connect(button.get(), &QPushButton::clicked, button.get(), [action = control.action] { action(); });
  return button;
}

WidgetPointer make(const SelectableTextControl& control) {
  auto field = std::make_unique<QLineEdit>(toQt(control.text));
  field->setReadOnly(true);
  field->setFont(toQt(control.font));
  field->setCursorPosition(0);
  return field;
}

}  // namespace

WidgetPointer makeControl(const Control& control) {
  return std::visit([](const auto& one) { return make(one); }, control);
}

Size intrinsicSize(const Control& control) {
  const WidgetPointer widget = makeControl(control);
  widget->ensurePolished();
  QSize size = widget->sizeHint();
  if (std::holds_alternative<PushButtonControl>(control)) {
    // Styles leave long titles hardly any room.
    constexpr int besideTitle = 8;
    size.rwidth() += 2 * besideTitle;
  }
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

}  // namespace roomlattice::platform::x11
