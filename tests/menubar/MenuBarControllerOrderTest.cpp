#include "app/AppDelegate.h"
#include "tests/support/ForwardingPlatform.h"
#include "tests/support/ForwardingUserInterface.h"
#include "tests/support/SimulatedFixture.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace roomlattice::tests {
namespace {

/// Calls `onActivation` when the program comes to the front.
class WatchedApplication final : public platform::Application {
 public:
  explicit WatchedApplication(platform::Application& inner) : inner_(inner) {}

  void setActivationPolicy(platform::ActivationPolicy policy) override { inner_.setActivationPolicy(policy); }
  int run(std::function<void()> didFinishLaunching) override { return inner_.run(std::move(didFinishLaunching)); }
  void activateIgnoringOtherApps() override {
    onActivation();
    inner_.activateIgnoringOtherApps();
  }
  void terminate() override { inner_.terminate(); }

  std::function<void()> onActivation = [] {};

 private:
  platform::Application& inner_;
};

/// Calls `onRefresh` when its button or its length is about to be set.
class WatchedStatusItem final : public platform::StatusItem {
 public:
  WatchedStatusItem(std::unique_ptr<platform::StatusItem> inner, const std::function<void()>& onRefresh)
      : inner_(std::move(inner)), onRefresh_(onRefresh) {}

  platform::StatusButton* button() override {
    onRefresh_();
    return inner_->button();
  }
  void setLength(const platform::StatusItemLength& length) override {
    onRefresh_();
    inner_->setLength(length);
  }
  void setMenu(platform::Menu* menu) override { inner_->setMenu(menu); }
  void openMenu() override { inner_->openMenu(); }

 private:
  std::unique_ptr<platform::StatusItem> inner_;
  const std::function<void()>& onRefresh_;
};

/// A platform where the order of what the menu bar does can be seen.
class WatchedPlatform final : public ForwardingPlatform {
 public:
  explicit WatchedPlatform(platform::Platform& inner)
      : ForwardingPlatform(inner), application_(inner.application()), userInterface_(inner.userInterface()) {}

  WatchedApplication& application() override { return application_; }
  platform::UserInterface& userInterface() override { return userInterface_; }

  void onStatusItemRefresh(std::function<void()> act) { userInterface_.onRefresh = std::move(act); }

 private:
  class UserInterface final : public ForwardingUserInterface {
   public:
    using ForwardingUserInterface::ForwardingUserInterface;

    std::unique_ptr<platform::StatusItem> createStatusItem(const platform::StatusItemLength& length) override {
      return std::make_unique<WatchedStatusItem>(ForwardingUserInterface::createStatusItem(length), onRefresh);
    }

    std::function<void()> onRefresh = [] {};
  };

  WatchedApplication application_;
  UserInterface userInterface_;
};

class MenuBarControllerOrderTest : public SimulatedFixture {
 protected:
  void startProgram() {
    program_.emplace(watched);
    program_->applicationDidFinishLaunching();
  }

  WatchedPlatform watched{platform()};

 private:
  std::optional<AppDelegate> program_;
};

TEST_F(MenuBarControllerOrderTest, GivesTheStatusItemItsMenuBeforeItShowsAnything) {
  std::optional<bool> hadMenu;
  watched.onStatusItemRefresh([&] {
    if (!hadMenu) {
      hadMenu = desktop.statusItem()->menu() != nullptr;
    }
  });
  startProgram();
  EXPECT_EQ(hadMenu, true);
}

TEST_F(MenuBarControllerOrderTest, ShowsThePreferencesBeforeTheProgramComesToTheFront) {
  std::optional<bool> wereVisible;
  watched.application().onActivation = [&] {
    wereVisible = desktop.tabbedWindow() != nullptr && desktop.tabbedWindow()->isVisible();
  };
  startProgram();
  user.clicksStatusItem();
  user.clicksCommand("Preferences\u2026");
  EXPECT_EQ(wereVisible, true);
}

}  // namespace
}  // namespace roomlattice::tests
