#include "app/Entry.h"

#include "platform/simulated/SimulatedDesktop.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedUser.h"
#include "tests/support/ForwardingPlatform.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::simulated::SimulatedDesktop;
using platform::simulated::SimulatedPlatform;
using platform::simulated::SimulatedUser;

/// A platform that can be looked at just before its event loop runs.
class PlatformThatShowsItsStart final : public ForwardingPlatform {
 public:
  explicit PlatformThatShowsItsStart(platform::Platform& inner)
      : ForwardingPlatform(inner), application_(inner.application(), onRun) {}

  platform::Application& application() override { return application_; }

  std::function<void()> onRun;

 private:
  class Application final : public platform::Application {
   public:
    Application(platform::Application& inner, const std::function<void()>& onRun) : inner_(inner), onRun_(onRun) {}

    void setActivationPolicy(platform::ActivationPolicy policy) override { inner_.setActivationPolicy(policy); }
    int run(std::function<void()> didFinishLaunching) override {
      onRun_();
      return inner_.run(std::move(didFinishLaunching));
    }
    void activateIgnoringOtherApps() override { inner_.activateIgnoringOtherApps(); }
    void terminate() override { inner_.terminate(); }

   private:
    platform::Application& inner_;
    const std::function<void()>& onRun_;
  };

  Application application_;
};

class EntryTest : public ::testing::Test {
 protected:
  int runProgram() {
    SimulatedPlatform platform(desktop);
    return runRoomlattice(platform);
  }

  void quitsThroughTheMenu() {
    user.clicksStatusItem();
    user.clicksCommand("Quit Plinkhaven");
  }

  SimulatedDesktop desktop;
  SimulatedUser user{desktop};
};

TEST_F(EntryTest, RunsUntilTheUserQuits) {
  desktop.after(10s, [this] { quitsThroughTheMenu(); });
  EXPECT_EQ(runProgram(), 0);
  EXPECT_EQ(desktop.now(), 10s);
}

TEST_F(EntryTest, IsAnAccessoryAndNothingElseBeforeTheEventLoopRuns) {
  desktop.after(1s, [this] { quitsThroughTheMenu(); });
  SimulatedPlatform inner(desktop);
  PlatformThatShowsItsStart platform(inner);
  std::optional<platform::ActivationPolicy> policy;
  bool built = true;
  bool settingsRead = true;
  platform.onRun = [&] {
    policy = inner.application().activationPolicy();
    built = desktop.statusItem() != nullptr || !desktop.windows().overlays().empty();
    settingsRead = desktop.storedDefaults().contains("KnownSpaceUUIDs");
  };
  EXPECT_EQ(runRoomlattice(platform), 0);
  EXPECT_EQ(policy, platform::ActivationPolicy::Accessory);
  EXPECT_FALSE(built);
  EXPECT_FALSE(settingsRead);
  EXPECT_TRUE(desktop.storedDefaults().contains("KnownSpaceUUIDs"));
}

TEST_F(EntryTest, LeavesNothingOnTheScreen) {
  desktop.after(2s, [this] {
    EXPECT_FALSE(desktop.windows().overlays().empty());
    quitsThroughTheMenu();
  });
  runProgram();
  EXPECT_TRUE(desktop.windows().overlays().empty());
  EXPECT_EQ(desktop.statusItem(), nullptr);
}

TEST_F(EntryTest, CanBeRunAgain) {
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

TEST_F(EntryTest, ToursOnEachRun) {
  for (int run = 1; run <= 2; ++run) {
    desktop.after(30s, [this] { quitsThroughTheMenu(); });
    runProgram();
    EXPECT_EQ(desktop.log().texts().size(), 2U * static_cast<unsigned>(run));
  }
}

}  // namespace
}  // namespace roomlattice::tests
