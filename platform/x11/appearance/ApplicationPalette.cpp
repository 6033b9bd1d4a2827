#include "platform/x11/appearance/ApplicationPalette.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

struct Tones {
  QRgb window;
  QRgb base;
  QRgb alternateBase;
  QRgb button;
  QRgb text;
  QRgb disabledText;
};

Tones tonesOf(Appearance appearance) {
  if (appearance == Appearance::Dark) {
    return {0x2b2b2b, 0x1e1e1e, 0x262626, 0x3a3a3a, 0xf2f2f2, 0x7d7d7d};
  }
  return {0xefefef, 0xffffff, 0xf7f7f7, 0xefefef, 0x000000, 0x9a9a9a};
}

QPalette paletteOf(Appearance appearance) {
  const Tones tones = tonesOf(appearance);
  // Qt derives the shades of bevels and shadows from these two.
  QPalette palette(QColor(tones.button), QColor(tones.window));
  palette.setColor(QPalette::Base, QColor(tones.base));
  palette.setColor(QPalette::AlternateBase, QColor(tones.alternateBase));
  palette.setColor(QPalette::ToolTipBase, QColor(tones.base));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, QColor(tones.text));
    palette.setColor(QPalette::Disabled, role, QColor(tones.disabledText));
  }
  palette.setColor(QPalette::PlaceholderText, QColor(tones.disabledText));
  palette.setColor(QPalette::Highlight, QColor(QRgb{0x308cc6}));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

Appearance appearanceOf(const QPalette& palette) {
  const float text = palette.color(QPalette::WindowText).lightnessF();
  return text > palette.color(QPalette::Window).lightnessF() ? Appearance::Dark : Appearance::Light;
}

}  // namespace

ApplicationPalette::ApplicationPalette(std::function<void()> changed) : changed_(std::move(changed)) {
  examineTheme();
}

void ApplicationPalette::apply(Appearance appearance) {
  changing_ = true;
  // An empty palette lets the theme's own colours through.
  QApplication::setPalette(appearance == themeAppearance_ ? QPalette() : paletteOf(appearance));
  changing_ = false;
}

void ApplicationPalette::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !changing_) {
    examineTheme();
    changed_();
  }
}

void ApplicationPalette::examineTheme() {
  changing_ = true;
  QApplication::setPalette(QPalette());
  themeAppearance_ = appearanceOf(QApplication::palette());
  changing_ = false;
}

}  // namespace roomlattice::platform::x11
