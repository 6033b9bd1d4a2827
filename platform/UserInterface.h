#pragma once

#include "platform/Color.h"
#include "platform/Controls.h"
#include "platform/Font.h"
#include "platform/Geometry.h"
#include "platform/StatusItem.h"
#include "platform/Window.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform {

struct Screen {
  Rect frame;  // screen coordinates

  bool operator==(const Screen&) const = default;
};

enum class Appearance { Light, Dark };

/// Screens, appearance, text and everything that is shown.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  /// The primary screen first; may be empty for a while when displays are unplugged.
  virtual std::vector<Screen> screens() const = 0;

  /// The screen with the keyboard focus; nothing while there is none.
  virtual std::optional<Screen> mainScreen() const = 0;

  /// What the desktop's appearance matches best; nothing when it matches neither.
  virtual std::optional<Appearance> effectiveAppearance() const = 0;

  virtual Color accentColor() const = 0;

  /// The point size of the platform's standard control text.
  virtual double systemFontSize() const = 0;

  /// The typographic size of `text` as a single line.
  virtual Size measure(const std::string& text, const Font& font) const = 0;

  /// The size `control` has of itself in this platform's look. A text that is empty is as high as a line.
  virtual Size intrinsicSize(const Control& control) const = 0;

  virtual std::unique_ptr<StatusItem> createStatusItem(const StatusItemLength& length) = 0;

  virtual std::unique_ptr<Window> createOverlayWindow(const OverlayWindowOptions& options) = 0;

  virtual std::unique_ptr<TabbedWindow> createTabbedWindow(const TabbedWindowModel& model) = 0;
};

}  // namespace roomlattice::platform
