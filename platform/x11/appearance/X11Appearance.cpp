#include "platform/x11/appearance/X11Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QString>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// Themes come in pairs whose dark half says so in its name, such as "Adwaita-dark".
Appearance appearanceOfTheme(const std::string& name) {
  return QString::fromStdString(name).contains(QStringLiteral("dark"), Qt::CaseInsensitive) ? Appearance::Dark
                                                                                            : Appearance::Light;
}

}  // namespace

X11Appearance::X11Appearance(X11Connection& connection, linux::MessageBus& sessionBus,
                             NotificationCenter& distributedCenter)
    : distributedCenter_(distributedCenter),
      portal_(sessionBus, [this] { update(); }),
      xSettings_(connection, [this] { update(); }),
      palette_([this] { update(); }),
      current_(wanted()) {
  palette_.apply(current_);
}

Color X11Appearance::accentColor() const {
  if (const std::optional<Color> color = portal_.accentColor()) {
    return *color;
  }
  const QColor highlight = QApplication::palette().color(QPalette::Highlight);
  return {highlight.redF(), highlight.greenF(), highlight.blueF(), 1.0};
}

Appearance X11Appearance::wanted() const {
  if (const std::optional<Appearance> preference = portal_.preference()) {
    return *preference;
  }
  if (const std::optional<std::string> theme = xSettings_.text("Net/ThemeName")) {
    return appearanceOfTheme(*theme);
  }
  return palette_.themeAppearance();
}

void X11Appearance::update() {
  const Appearance now = wanted();
  palette_.apply(now);
  if (std::exchange(current_, now) != now) {
    distributedCenter_.post(notification::interfaceThemeChanged);
  }
}

}  // namespace roomlattice::platform::x11
