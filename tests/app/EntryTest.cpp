#include "app/Entry.h"

#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedUser.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::simulated::SimulatedDesktop;
using platform::simulated::SimulatedPlatform;
using platform::simulated::SimulatedUser;

class Entry : public ::testing::Test {
 protected:
  int runProgram() {
    SimulatedPlatform platform(desktop);
    const int status = runRoomlattice(platform);
    policy = platform.application().activationPolicy();
    return status;
  }

  void quitsThroughTheMenu() {
    user.clicksStatusItem();
    user.clicksCommand("Quit Plinkhaven");
  }

  SimulatedDesktop desktop;
  SimulatedUser user{desktop};
  std::optional<platform::ActivationPolicy> policy;
};

TEST_F(Entry, RunsUntilTheUserQuits) {
  desktop.after(10s, [this] { quitsThroughTheMenu(); });
  EXPECT_EQ(runProgram(), 0);
  EXPECT_EQ(desktop.now(), 10s);
}

TEST_F(Entry, RunsAsAnAccessory) {
  desktop.after(1s, [this] { quitsThroughTheMenu(); });
  runProgram();
  EXPECT_EQ(policy, platform::ActivationPolicy::Accessory);
}

TEST_F(Entry, LeavesNothingOnTheScreen) {
  desktop.after(2s, [this] {
    EXPECT_FALSE(desktop.windows().overlays().empty());
    quitsThroughTheMenu();
  });
  runProgram();
  EXPECT_TRUE(desktop.windows().overlays().empty());
  EXPECT_EQ(desktop.statusItem(), nullptr);
}

TEST_F(Entry, CanBeRunAgain) {
  for (const auto& title : {" Desktop 1 ", " Mail "}) {
    desktop.after(1s, [this, title] {
      EXPECT_EQ(desktop.statusItem()->content().title.text, title);
      user.clicksStatusItem();
      user.clicksRowButton(0);
      user.types("Mail");
      user.pressesKey(platform::keyCode::returnKey);
      user.clicksCommand("Quit Plinkhaven");
    });
    EXPECT_EQ(runProgram(), 0);
  }
}

TEST_F(Entry, ToursOnEachRun) {
  for (int run = 1; run <= 2; ++run) {
    desktop.after(30s, [this] { quitsThroughTheMenu(); });
    runProgram();
    EXPECT_EQ(desktop.log().texts().size(), 2U * static_cast<unsigned>(run));
  }
}

}  // namespace
}  // namespace roomlattice::tests
