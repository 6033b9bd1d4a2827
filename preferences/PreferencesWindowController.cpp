#include "preferences/PreferencesWindowController.h"

#include "preferences/ColorsPage.h"
#include "preferences/MenuBarPage.h"
#include "preferences/SignPage.h"
#include "support/Installation.h"

namespace roomlattice {
namespace {

constexpr platform::Size windowSize{520.0, 480.0};
constexpr double tabInset = 12.0;
constexpr std::size_t diagnosticsIndex = 3;

}  // namespace

PreferencesWindowController& PreferencesWindowController::shared() {
  return Installation::current().shared<PreferencesWindowController>(SpaceManager::shared(),
                                                                     PreferencesStore::shared());
}

PreferencesWindowController::PreferencesWindowController(platform::Platform& platform, const SpaceManager& manager,
                                                         PreferencesStore& store)
    : diagnostics_(platform, diagnosticsIndex) {
  platform::UserInterface& userInterface = platform.userInterface();
  platform::TabbedWindowModel model{
      .title = "Plinkhaven Preferences",
      .contentSize = windowSize,
      .tabFrame = {{tabInset, tabInset}, {windowSize.width - 2 * tabInset, windowSize.height - 2 * tabInset}}};
  model.pages.push_back(makeSignPage(userInterface, store));
  model.pages.push_back(makeColorsPage(userInterface, store, manager));
  model.pages.push_back(makeMenuBarPage(userInterface, store));
  model.pages.push_back(diagnostics_.make());
  window_ = userInterface.createTabbedWindow(model);
  diagnostics_.setWindow(*window_);
}

}  // namespace roomlattice
