#pragma once

#include "platform/Platform.h"
#include "preferences/DiagnosticsPage.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <memory>

namespace roomlattice {

/// The preferences window: a thin editor over the preferences, in which every change takes effect at once. It is built
/// on first use and then kept; its controls show what was set when it was built, and from then on only write.
class PreferencesWindowController {
 public:
  /// The instance of the installed platform, made on first use.
  static PreferencesWindowController& shared();

  PreferencesWindowController(platform::Platform& platform, const SpaceManager& manager, PreferencesStore& store);

  /// Shows the window in front of the program's others.
  void showWindow() { window_->show(); }

 private:
  DiagnosticsPage diagnostics_;
  std::unique_ptr<platform::TabbedWindow> window_;
};

}  // namespace roomlattice
