#pragma once

#include "platform/UserInterface.h"

#include <QWidget>
#include <functional>

namespace roomlattice::platform::x11 {

/// The colours of the Qt application. They come from the desktop's Qt theme where there is one; where there is none, or
/// it does not go with the appearance wanted, plain light or dark ones stand in.
class ApplicationPalette final : private QWidget {
 public:
  /// `changed` is called from the event loop when the theme itself has brought other colours.
  explicit ApplicationPalette(std::function<void()> changed);

  /// What the theme's own colours are.
  Appearance themeAppearance() const { return themeAppearance_; }

  /// Makes the application look like this.
  void apply(Appearance appearance);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void examineTheme();

  std::function<void()> changed_;
  Appearance themeAppearance_ = Appearance::Light;
  bool changing_ = false;
};

}  // namespace roomlattice::platform::x11
