#include "platform/simulated/SimulatedTabbedWindow.h"

#include "tests/support/SimulatedFixture.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace platform;

class SimulatedTabbedWindowTest : public SimulatedFixture {
 protected:
  SimulatedTabbedWindowTest() : window_(platform().userInterface().createTabbedWindow(model())) {}

  TabbedWindowModel model() {
    TabPage first{.identifier = "first", .label = "First"};
    first.controls = {
        {.control = LabelControl{.text = "Size:"}},
        {.control = SliderControl{.value = 2.0,
                                  .minimum = 1.0,
                                  .maximum = 5.0,
                                  .action = [this](double value) { slid_.push_back(value); }}},
        {.control =
             CheckBoxControl{.title = "Shown", .action = [this](CheckState state) { states_.push_back(state); }}},
    };
    TabPage second{.identifier = "second", .label = "Second"};
    second.controls = {
        {.control = PopUpControl{.items = {"Red", "Blue"}, .action = [this](int index) { chosen_.push_back(index); }},
         .accessibilityLabel = "Palette:"},
        {.control = ColorWellControl{.tag = 7,
                                     .action =
                                         [this](std::int64_t tag, Color color) {
                                           picked_ = {tag, color};
                                         }},
         .accessibilityLabel = "Desktop 1"},
        {.control = PushButtonControl{.title = "Copy", .action = [this] { ++pushes_; }}},
    };
    return {.title = "Settings", .contentSize = {500.0, 400.0}, .pages = {std::move(first), std::move(second)}};
  }

  simulated::SimulatedTabbedWindow& seen() { return *desktop.tabbedWindow(); }

  std::vector<double> slid_;
  std::vector<CheckState> states_;
  std::vector<int> chosen_;
  std::optional<std::pair<std::int64_t, Color>> picked_;
  int pushes_ = 0;
  std::unique_ptr<TabbedWindow> window_;
};

constexpr ControlReference sizeLabel{0, 0};
constexpr ControlReference slider{0, 1};
constexpr ControlReference checkBox{0, 2};
constexpr ControlReference popUp{1, 0};
constexpr ControlReference colorWell{1, 1};
constexpr ControlReference button{1, 2};

TEST_F(SimulatedTabbedWindowTest, IsHiddenUntilShownAndAfterClosing) {
  EXPECT_FALSE(seen().isVisible());
  window_->show();
  EXPECT_TRUE(seen().isVisible());
  EXPECT_TRUE(desktop.programHasKeyboard());
  user.closesWindow();
  EXPECT_FALSE(seen().isVisible());
  EXPECT_FALSE(desktop.programHasKeyboard());
}

TEST_F(SimulatedTabbedWindowTest, StandsInTheMiddleOfTheMainScreenWithItsTitleBar) {
  EXPECT_EQ(seen().frame(), (Rect{{470.0, 236.0}, {500.0, 428.0}}));
}

TEST_F(SimulatedTabbedWindowTest, CallsNoActionByBeingMade) {
  window_->show();
  desktop.advance(1s);
  EXPECT_TRUE(slid_.empty() && states_.empty() && chosen_.empty() && !picked_ && pushes_ == 0);
}

TEST_F(SimulatedTabbedWindowTest, SlidesWithinTheRangeOfASlider) {
  seen().slide(slider, 3.5);
  seen().slide(slider, 0.0);
  seen().slide(slider, 9.0);
  EXPECT_EQ(slid_, (std::vector{3.5, 1.0, 5.0}));
  EXPECT_EQ(seen().control<SliderControl>(slider).value, 5.0);
}

TEST_F(SimulatedTabbedWindowTest, TurnsACheckBoxOnAndOff) {
  seen().toggle(checkBox);
  seen().toggle(checkBox);
  seen().check(checkBox, CheckState::Mixed);
  seen().toggle(checkBox);
  EXPECT_EQ(states_, (std::vector{CheckState::On, CheckState::Off, CheckState::Mixed, CheckState::On}));
}

TEST_F(SimulatedTabbedWindowTest, HandsOnAnyIndexOfAPopUp) {
  seen().choose(popUp, 1);
  seen().choose(popUp, -1);
  seen().choose(popUp, 2);
  EXPECT_EQ(chosen_, (std::vector{1, -1, 2}));
}

TEST_F(SimulatedTabbedWindowTest, HandsOnAPickedColorWithTheWellsTag) {
  const Color color{0.1, 0.2, 0.3, 0.4};
  seen().pickColor(colorWell, color);
  EXPECT_EQ(picked_, (std::pair<std::int64_t, Color>{7, color}));
  EXPECT_EQ(seen().control<ColorWellControl>(colorWell).color, color);
}

TEST_F(SimulatedTabbedWindowTest, PushesAButtonOnlyWhileItIsEnabled) {
  seen().push(button);
  window_->setEnabled(button, false);
  EXPECT_FALSE(seen().isEnabled(button));
  seen().push(button);
  EXPECT_EQ(pushes_, 1);
  window_->setEnabled(button, true);
  seen().push(button);
  EXPECT_EQ(pushes_, 2);
}

TEST_F(SimulatedTabbedWindowTest, ShowsTheTextALabelWasGiven) {
  window_->setText(sizeLabel, "Gathering…");
  EXPECT_EQ(seen().control<LabelControl>(sizeLabel).text, "Gathering…");
}

TEST_F(SimulatedTabbedWindowTest, FindsControlsByTheirNamesAndByTheLabelsBeforeThem) {
  const auto isAt = [this](const char* text, ControlReference expected) {
    const auto found = seen().find(text);
    return found && found->page == expected.page && found->control == expected.control;
  };
  EXPECT_TRUE(isAt("Size:", slider));
  EXPECT_TRUE(isAt("Shown", checkBox));
  EXPECT_TRUE(isAt("Palette:", popUp));
  EXPECT_TRUE(isAt("Desktop 1", colorWell));
  EXPECT_TRUE(isAt("Copy", button));
  EXPECT_FALSE(seen().find("Paste").has_value());
  EXPECT_FALSE(seen().find("").has_value());
}

TEST_F(SimulatedTabbedWindowTest, IsWorkedByTheUserThroughTheNamesOfItsControls) {
  window_->show();
  user.slides("Size:", 4.0);
  user.clicksCheckBox("Shown");
  user.chooses("Palette:", "Blue");
  user.picksColor("Desktop 1", Color::white());
  user.pushes("Copy");
  EXPECT_EQ(slid_, std::vector{4.0});
  EXPECT_EQ(states_, std::vector{CheckState::On});
  EXPECT_EQ(chosen_, std::vector{1});
  EXPECT_TRUE(picked_.has_value());
  EXPECT_EQ(pushes_, 1);
}

TEST_F(SimulatedTabbedWindowTest, IsGoneWithItsOwner) {
  window_->show();
  window_.reset();
  EXPECT_EQ(desktop.tabbedWindow(), nullptr);
  EXPECT_FALSE(desktop.programHasKeyboard());
}

using SimulatedTabbedWindowDeathTest = SimulatedTabbedWindowTest;

TEST_F(SimulatedTabbedWindowDeathTest, StopsAScriptThatMistakesAControl) {
  EXPECT_DEATH(seen().slide(checkBox, 1.0), "no control of that kind");
  EXPECT_DEATH(seen().push({9, 9}), "no control of that kind");
  EXPECT_DEATH(user.pushes("Copy"), "no tabbed window is open");
}

}  // namespace
}  // namespace roomlattice::tests
