#include "platform/simulated/SimulatedUser.h"

#include "tests/support/SimulatedFixture.h"
#include "tests/support/TestView.h"

#include <memory>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Event;
using platform::EventField;
using platform::Menu;

class SimulatedUserTest : public SimulatedFixture {
 protected:
  struct Seen {
    platform::Duration at{0};
    std::int64_t phase = 0;
    double progress = 0.0;
    double velocity = 0.0;
  };

  SimulatedUserTest()
      : tap_(platform().events().createTap([this](const Event& event, std::uint32_t) {
          seen_.push_back({desktop.now(), event.integer(EventField::Phase), event.real(EventField::Progress),
                           event.real(EventField::Velocity)});
        })) {
    tap_->enable();
  }

  std::vector<Seen> seen_;
  std::unique_ptr<platform::EventTap> tap_;
};

TEST_F(SimulatedUserTest, SwipesFromBeginningToEnd) {
  user.swipes(Left);
  EXPECT_EQ(seen_.size(), 1U);
  desktop.advance(1s);
  ASSERT_EQ(seen_.size(), 6U);
  EXPECT_EQ(seen_.front().phase, 1);
  EXPECT_EQ(seen_.back().phase, 4);
  EXPECT_EQ(seen_.back().at, 40ms);
  EXPECT_EQ(seen_.back().progress, -1.0);
  for (const Seen& event : seen_) {
    EXPECT_LT(event.progress, 0.0);
    EXPECT_LT(event.velocity, 0.0);
  }
}

TEST_F(SimulatedUserTest, FinishesASwipeWithoutAnyProgram) {
  tap_.reset();
  user.swipes(Right);
  relaunch();
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SimulatedUserTest, MovesAndClicksWithOnePointer) {
  user.clicks({10.0, 20.0});
  EXPECT_EQ(platform().events().mouseLocation(), (platform::Point{10.0, 20.0}));
}

TEST_F(SimulatedUserTest, TypesEveryCharacterByAKeyOfItsOwn) {
  user.types("aé🎈");
  EXPECT_EQ(seen_.size(), 3U);
}

using SimulatedUserDeathTest = SimulatedUserTest;

TEST_F(SimulatedUserDeathTest, StopsAScriptThatActsOnWhatIsNotThere) {
  EXPECT_DEATH(user.clicksStatusItem(), "no status item");
  EXPECT_DEATH(user.clicksRow(0), "no menu is open");
  EXPECT_DEATH(user.closesWindow(), "no tabbed window is open");
}

TEST_F(SimulatedUserDeathTest, StopsAScriptThatClicksWhatIsNotShown) {
  const auto item = platform().userInterface().createStatusItem(platform::FixedLength{100.0});
  auto view = std::make_unique<TestView>();
  view->buttonHidden = true;
  Menu menu;
  menu.items.emplace_back(platform::ViewItem{.view = std::move(view)});
  item->setMenu(&menu);
  user.clicksStatusItem();
  EXPECT_DEATH(user.clicksRowButton(0), "shows no button");
  EXPECT_DEATH(user.clicksCommand("Quit"), "no such command");
  EXPECT_DEATH(user.clicksRow(1), "no such row");
  item->setMenu(nullptr);
}

}  // namespace
}  // namespace roomlattice::tests
