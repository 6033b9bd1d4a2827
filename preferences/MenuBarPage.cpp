#include "preferences/MenuBarPage.h"

#include "preferences/PageBuilder.h"

namespace roomlattice {
namespace {

/// Places of the width pop-up.
enum WidthIndex { FitToTitle = 0, FixedWidth = 1 };

}  // namespace

platform::TabPage makeMenuBarPage(const platform::UserInterface& userInterface, PreferencesStore& store) {
  PageBuilder page(userInterface, PageBuilder::formSpacing);
  const bool fixed = store.menuBarWidthMode() == MenuBarWidthMode::MaxTitleLength;
  page.addRow("Menu Bar Width:", platform::PopUpControl{.items = {"Fit to Title", "Fixed Width"},
                                                        .selectedIndex = fixed ? FixedWidth : FitToTitle,
                                                        .action = [&store](int index) {
                                                          store.setMenuBarWidthMode(
                                                              index == FitToTitle ? MenuBarWidthMode::FitToTitle
                                                                                  : MenuBarWidthMode::MaxTitleLength);
                                                        }});
  page.addCheckBox("Show desktop name in menu bar", store.showSpaceNameInMenuBar(),
                   [&store](bool show) { store.setShowSpaceNameInMenuBar(show); });
  page.addCheckBox("Instant switch (no swipe animation)", store.instantMenuSwitch(),
                   [&store](bool instant) { store.setInstantMenuSwitch(instant); });
  return page.build("menubar", "Menu Bar");
}

}  // namespace roomlattice
