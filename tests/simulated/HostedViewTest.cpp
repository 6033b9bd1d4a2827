#include "platform/simulated/HostedView.h"

#include "tests/support/TestView.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Point;

class HostedViewTest : public ::testing::Test,
                       private platform::simulated::ViewSurroundings,
                       private platform::simulated::FieldFocus {
 protected:
  HostedViewTest() { host_.emplace(view_, static_cast<ViewSurroundings&>(*this)); }

  TestView view_;
  std::optional<platform::simulated::HostedView> host_;
  int contentWrites_ = 0;
  bool trackingCancelled_ = false;

 private:
  FieldFocus& fieldFocus() override { return *this; }
  bool moveTo(platform::simulated::SimulatedTextField&) override { return true; }
  void contentWritten() override { ++contentWrites_; }
  void cancelMenuTracking() override { trackingCancelled_ = true; }
};

TEST_F(HostedViewTest, IsItsViewsHostAsLongAsItLives) {
  EXPECT_EQ(view_.host(), &*host_);
  host_.reset();
  EXPECT_EQ(view_.host(), nullptr);
}

TEST_F(HostedViewTest, GivesClicksToWhatTheHitTestNames) {
  host_->click({50.0, 10.0});
  EXPECT_EQ(view_.clicks, (std::vector<Point>{{50.0, 10.0}}));
  host_->click({150.0, 10.0});
  EXPECT_EQ(view_.buttonClicks, 1);
  host_->click({250.0, 10.0});
  EXPECT_TRUE(host_->textField()->isEditing());
  host_->click({50.0, 31.0});
  EXPECT_EQ(view_.clicks.size(), 1U);
}

TEST_F(HostedViewTest, PassesOnWhatTheViewTellsIt) {
  view_.setFrame({{}, {10.0, 10.0}});
  EXPECT_EQ(contentWrites_, 1);
  view_.host()->cancelMenuTracking();
  EXPECT_TRUE(trackingCancelled_);
}

TEST_F(HostedViewTest, EndsEditingWhenTheFieldIsHidden) {
  host_->textField()->focusAndSelectAll();
  view_.hideField();
  EXPECT_FALSE(host_->textField()->isEditing());
}

/// A view whose list of elements is not always the same.
class UnsteadyView : public platform::View {
 public:
  platform::ViewContent content() const override {
    return {.elements = std::vector<platform::ViewElement>(grown ? 2 : 1)};
  }
  void grow() {
    grown = true;
    contentChanged();
  }

  bool grown = false;
};

using HostedViewDeathTest = HostedViewTest;

TEST_F(HostedViewDeathTest, InsistsThatAViewKeepsItsElements) {
  struct Surroundings : platform::simulated::ViewSurroundings, platform::simulated::FieldFocus {
    FieldFocus& fieldFocus() override { return *this; }
    bool moveTo(platform::simulated::SimulatedTextField&) override { return false; }
    void contentWritten() override {}
    void cancelMenuTracking() override {}
  } surroundings;
  UnsteadyView view;
  const platform::simulated::HostedView host(view, surroundings);
  EXPECT_DEATH(view.grow(), "number or the kinds of its elements");
}

}  // namespace
}  // namespace roomlattice::tests
