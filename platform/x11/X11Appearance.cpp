#include "platform/x11/X11Appearance.h"

#include <QGuiApplication>
#include <QPalette>

namespace roomlattice::platform::x11 {

X11Appearance::X11Appearance(X11Connection&, NotificationCenter&) {}

std::optional<Appearance> X11Appearance::current() const {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::WindowText).lightnessF() > palette.color(QPalette::Window).lightnessF()
             ? Appearance::Dark
             : Appearance::Light;
}

Color X11Appearance::accentColor() const {
  const QColor highlight = QGuiApplication::palette().color(QPalette::Highlight);
  return {highlight.redF(), highlight.greenF(), highlight.blueF(), 1.0};
}

}  // namespace roomlattice::platform::x11
