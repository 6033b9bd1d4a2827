#include "preferences/PreferencesWindowController.h"

#include "preferences/PageBuilder.h"
#include "support/Installation.h"

namespace roomlattice {
namespace {

using platform::CheckBoxControl;
using platform::CheckState;

constexpr platform::Size windowSize{520.0, 480.0};
constexpr double tabInset = 12.0;
constexpr double formSpacing = 20.0;

using BooleanSetter = void (PreferencesStore::*)(bool);

CheckBoxControl checkBox(const char* title, bool isOn, BooleanSetter setter) {
  return {.title = title, .state = isOn ? CheckState::On : CheckState::Off, .action = [setter](CheckState state) {
            (PreferencesStore::shared().*setter)(state == CheckState::On);
          }};
}

}  // namespace

PreferencesWindowController& PreferencesWindowController::shared() {
  return Installation::current().shared<PreferencesWindowController>();
}

PreferencesWindowController::PreferencesWindowController(platform::Platform& platform) : platform_(platform) {
  platform::TabbedWindowModel model{
      .title = "Plinkhaven Preferences",
      .contentSize = windowSize,
      .tabFrame = {{tabInset, tabInset}, {windowSize.width - 2 * tabInset, windowSize.height - 2 * tabInset}}};
  model.pages.push_back(makeSignTab());
  model.pages.push_back(makeColorsTab());
  model.pages.push_back(makeMenuBarTab());
  model.pages.push_back(makeDiagnosticsTab());
  window_ = platform.userInterface().createTabbedWindow(model);
}

void PreferencesWindowController::showWindow() {
  window_->show();
}

platform::TabPage PreferencesWindowController::makeSignTab() const {
  const PreferencesStore& store = PreferencesStore::shared();
  PageBuilder page(platform_.userInterface(), formSpacing);
  page.addRow(
      "Label Text Size:",
      platform::SliderControl{.value = store.signTextSize(),
                              .minimum = 60.0,
                              .maximum = 300.0,
                              .action = [](double value) { PreferencesStore::shared().setSignTextSize(value); }},
      PageBuilder::RowWidth::Slider);
  page.addRow(
      "Label Opacity During Swipe:",
      platform::SliderControl{.value = store.signSwipeAlpha(),
                              .minimum = 0.1,
                              .maximum = 1.0,
                              .action = [](double value) { PreferencesStore::shared().setSignSwipeAlpha(value); }},
      PageBuilder::RowWidth::Slider);
  page.add(checkBox("Show desktop label during swipe transitions", store.showSignInSwipeMode(),
                    &PreferencesStore::setShowSignInSwipeMode));
  page.add(checkBox("Show desktop label after selection", store.showSignAfterSelection(),
                    &PreferencesStore::setShowSignAfterSelection));
  return page.build("sign", "Label");
}

platform::TabPage PreferencesWindowController::makeMenuBarTab() const {
  const PreferencesStore& store = PreferencesStore::shared();
  PageBuilder page(platform_.userInterface(), formSpacing);
  page.addRow("Menu Bar Width:",
              platform::PopUpControl{.items = {"Fit to Title", "Fixed Width"},
                                     .selectedIndex = store.menuBarWidthMode() == MenuBarWidthMode::maxTitleLength,
                                     .action = widthModeChanged});
  page.add(checkBox("Show desktop name in menu bar", store.showSpaceNameInMenuBar(),
                    &PreferencesStore::setShowSpaceNameInMenuBar));
  page.add(checkBox("Instant switch (no swipe animation)", store.instantMenuSwitch(),
                    &PreferencesStore::setInstantMenuSwitch));
  return page.build("menubar", "Menu Bar");
}

void PreferencesWindowController::widthModeChanged(int selectedIndex) {
  PreferencesStore::shared().setMenuBarWidthMode(selectedIndex != 0 ? MenuBarWidthMode::maxTitleLength
                                                                    : MenuBarWidthMode::fitToTitle);
}

}  // namespace roomlattice
