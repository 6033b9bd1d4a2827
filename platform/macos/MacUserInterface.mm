#import "platform/macos/MacUserInterface.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/MacStatusItem.h"
#import "platform/macos/MacTabbedWindow.h"
#import "platform/macos/MacWindow.h"
#import "platform/macos/NativeControls.h"

namespace roomlattice::platform::macos {

std::vector<Screen> MacUserInterface::screens() const {
  std::vector<Screen> screens;
  for (NSScreen* screen in [NSScreen screens]) {
    screens.push_back({.frame = toRect([screen frame])});
  }
  return screens;
}

std::optional<Screen> MacUserInterface::mainScreen() const {
  NSScreen* main = [NSScreen mainScreen];
  return main == nil ? std::nullopt : std::optional(Screen{.frame = toRect([main frame])});
}

std::optional<Appearance> MacUserInterface::effectiveAppearance() const {
  NSArray* names = [NSArray arrayWithObjects:NSAppearanceNameDarkAqua, NSAppearanceNameAqua, nil];
  NSString* match = [[NSApp effectiveAppearance] bestMatchFromAppearancesWithNames:names];
  if ([match isEqualToString:NSAppearanceNameDarkAqua]) {
    return Appearance::Dark;
  }
  return [match isEqualToString:NSAppearanceNameAqua] ? std::optional(Appearance::Light) : std::nullopt;
}

Color MacUserInterface::accentColor() const {
  return toColor([NSColor controlAccentColor]);
}

double MacUserInterface::systemFontSize() const {
  return [NSFont systemFontSize];
}

Size MacUserInterface::measure(const std::string& text, const Font& font) const {
  return textSize(text, font);
}

Size MacUserInterface::intrinsicSize(const Control& control) const {
  return macos::intrinsicSize(control);
}

std::unique_ptr<StatusItem> MacUserInterface::createStatusItem(const StatusItemLength& length) {
  return std::make_unique<MacStatusItem>(length);
}

std::unique_ptr<Window> MacUserInterface::createOverlayWindow(const OverlayWindowOptions& options) {
  return std::make_unique<MacWindow>(options);
}

std::unique_ptr<TabbedWindow> MacUserInterface::createTabbedWindow(const TabbedWindowModel& model) {
  return std::make_unique<MacTabbedWindow>(model);
}

}  // namespace roomlattice::platform::macos
