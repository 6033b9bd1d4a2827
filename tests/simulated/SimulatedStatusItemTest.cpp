#include "platform/simulated/SimulatedStatusItem.h"

#include "tests/support/SimulatedFixture.h"

#include <memory>

namespace roomlattice::tests {
namespace {

using platform::FixedLength;
using platform::SquareLength;
using platform::VariableLength;

class SimulatedStatusItemTest : public SimulatedFixture {
 protected:
  SimulatedStatusItemTest() : item_(platform().userInterface().createStatusItem(VariableLength{})) {}

  const platform::simulated::SimulatedStatusItem& seen() { return *desktop.statusItem(); }

  std::unique_ptr<platform::StatusItem> item_;
};

TEST_F(SimulatedStatusItemTest, ShowsWhatItsButtonWasGiven) {
  const platform::StatusButtonContent content{.title = {.text = " Work "}, .background = platform::Color::black()};
  item_->button()->setContent(content);
  EXPECT_EQ(seen().content(), content);
  EXPECT_EQ(seen().contentWrites(), 1);
}

TEST_F(SimulatedStatusItemTest, IsAsWideAsItsLengthSays) {
  item_->button()->setContent({.title = {.text = "Work"}});
  EXPECT_EQ(seen().width(), 28.0);
  item_->button()->setContent({.image = platform::Image{.size = {16.0, 16.0}}});
  EXPECT_EQ(seen().width(), 16.0);
  item_->setLength(SquareLength{});
  EXPECT_EQ(seen().width(), 24.0);
  item_->setLength(FixedLength{140.0});
  EXPECT_EQ(seen().width(), 140.0);
  EXPECT_EQ(seen().length(), platform::StatusItemLength(FixedLength{140.0}));
}

TEST_F(SimulatedStatusItemTest, StandsAtTheTopOfThePrimaryScreen) {
  item_->setLength(FixedLength{140.0});
  EXPECT_EQ(seen().frame(), (platform::Rect{{1100.0, 876.0}, {140.0, 24.0}}));
  desktop.setScreens({{{0.0, 0.0}, {1000.0, 500.0}}, {{1000.0, 0.0}, {800.0, 600.0}}});
  EXPECT_EQ(seen().frame(), (platform::Rect{{660.0, 476.0}, {140.0, 24.0}}));
}

TEST_F(SimulatedStatusItemTest, StandsNowhereWithoutAScreen) {
  desktop.setScreens({});
  EXPECT_EQ(seen().frame(), platform::Rect());
}

}  // namespace
}  // namespace roomlattice::tests
