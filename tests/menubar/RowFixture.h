#pragma once

#include "menubar/SpaceRowView.h"
#include "tests/support/ShownElement.h"
#include "tests/support/SimulatedFixture.h"

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace roomlattice::tests {

/// One desktop row as the only item of a status menu, which opens and closes under the user's hands. What the row's
/// callbacks are called with is noted.
class RowFixture : public SimulatedFixture {
 protected:
  enum class Activity { Active, Inactive };

  static constexpr platform::Color dotColor{0.2, 0.4, 0.6, 1.0};
  static constexpr platform::Point onDot{21.0, 12.0};
  static constexpr platform::Point onLabel{40.0, 12.0};
  static constexpr platform::Point onEmptySpace{150.0, 4.0};
  static constexpr platform::Point onPencil{201.0, 12.0};

  RowFixture() {
    item_->button()->setContent({.title = {.text = "Menu"}});
    item_->setMenu(&menu_);
  }

  SpaceRowView& makeRow(const std::string& name, Activity activity = Activity::Inactive) {
    destroyRow();
    auto made = std::make_unique<SpaceRowView>(platform(), SpaceInfo{101, "A", "Display 1", 0},
                                               activity == Activity::Active, dotColor, name);
    row_ = made.get();
    row_->setFrame({{}, {220.0, 24.0}});
    row_->onSwitch = [this] { ++switches; };
    row_->onCommitRename = [this](const std::string& text) { renames.push_back(text); };
    menu_.items.emplace_back(platform::ViewItem{std::move(made)});
    return *row_;
  }

  /// Makes a row and opens the menu.
  SpaceRowView& openRow(const std::string& name, Activity activity = Activity::Inactive) {
    makeRow(name, activity);
    user.clicksStatusItem();
    return *row_;
  }

  /// The same, and clicks the pencil.
  SpaceRowView& editRow(const std::string& name) {
    openRow(name);
    user.clicksRowButton(0);
    return *row_;
  }

  void destroyRow() {
    // A menu that has closed is gone once it is looked for; until then it shows its rows.
    static_cast<void>(desktop.menu());
    menu_.items.clear();
    row_ = nullptr;
  }

  void clicksRowAt(platform::Point point) { user.clicksRow(0, point); }

  void clearsField() { user.pressesKey(platform::simulated::simulatedKeyCode::deleteBackward); }

  ShownElement<platform::ImageElement> dot() { return element<platform::ImageElement>(); }
  ShownElement<platform::TextElement> label() { return element<platform::TextElement>(); }
  ShownElement<platform::TextFieldElement> fieldElement() { return element<platform::TextFieldElement>(); }
  ShownElement<platform::ButtonElement> pencil() { return element<platform::ButtonElement>(); }

  bool isEditing() { return label().hidden && !fieldElement().hidden; }

  platform::simulated::SimulatedTextField& field() { return *desktop.menu()->textField(0); }

  int switches = 0;
  std::vector<std::string> renames;

 private:
  template <class Kind>
  ShownElement<Kind> element() {
    const auto found = findElement<Kind>(row_->content());
    EXPECT_TRUE(found) << "the row shows no such element";
    return found.value_or(ShownElement<Kind>());
  }

  SpaceRowView* row_ = nullptr;
  platform::Menu menu_;
  std::unique_ptr<platform::StatusItem> item_ = platform().userInterface().createStatusItem(platform::VariableLength{});
};

}  // namespace roomlattice::tests
