#pragma once

#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "support/Lifetime.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace roomlattice {

/// The preferences window: a thin editor over the preferences, in which every change takes effect at once. It is built
/// on first use and then kept; its controls show what was set when it was built, and from then on only write. Main
/// thread only.
class PreferencesWindowController {
 public:
  /// The instance of the installed platform, made on first use.
  static PreferencesWindowController& shared();

  /// For shared().
  explicit PreferencesWindowController(platform::Platform& platform);

  /// Shows the window in front of the program's others.
  void showWindow();

 private:
  platform::TabPage makeSignTab() const;
  platform::TabPage makeColorsTab() const;
  platform::TabPage makeMenuBarTab() const;
  platform::TabPage makeDiagnosticsTab();

  static void colorModeChanged(int selectedIndex);
  static void widthModeChanged(int selectedIndex);
  static void paletteSelected(int selectedIndex);
  static void spaceColorChanged(std::int64_t tag, const platform::Color& color);

  void copyDiagnosticLog();
  void copyLogCommand();
  void showCopiedLog(const std::string& text);
  void setDiagnosticsStatus(const std::string& text);

  platform::Platform& platform_;
  std::optional<platform::ControlReference> diagnosticsStatusLabel_;
  platform::ControlReference copyLogButton_;
  std::unique_ptr<platform::TabbedWindow> window_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
