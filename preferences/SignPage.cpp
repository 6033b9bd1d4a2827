#include "preferences/SignPage.h"

#include "preferences/PageBuilder.h"

namespace roomlattice {

platform::TabPage makeSignPage(const platform::UserInterface& userInterface, PreferencesStore& store) {
  PageBuilder page(userInterface, PageBuilder::formSpacing);
  page.addRow("Label Text Size:",
              platform::SliderControl{.value = store.signTextSize(),
                                      .minimum = 60.0,
                                      .maximum = 300.0,
                                      .action = [&store](double value) { store.setSignTextSize(value); }},
              PageBuilder::RowWidth::Slider);
  page.addRow("Label Opacity During Swipe:",
              platform::SliderControl{.value = store.signSwipeAlpha(),
                                      .minimum = 0.1,
                                      .maximum = 1.0,
                                      .action = [&store](double value) { store.setSignSwipeAlpha(value); }},
              PageBuilder::RowWidth::Slider);
  page.addCheckBox("Show desktop label during swipe transitions", store.showSignInSwipeMode(),
                   [&store](bool show) { store.setShowSignInSwipeMode(show); });
  page.addCheckBox("Show desktop label after selection", store.showSignAfterSelection(),
                   [&store](bool show) { store.setShowSignAfterSelection(show); });
  return page.build("sign", "Label");
}

}  // namespace roomlattice
