#include "platform/simulated/SimulatedNotifications.h"

#include "tests/support/SimulatedFixture.h"

#include <string>
#include <string_view>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::NotificationCenter;
using platform::Registration;

namespace notification = platform::notification;

/// Listens to everything on all centres.
class SimulatedNotificationsTest : public SimulatedFixture {
 protected:
  SimulatedNotificationsTest() {
    auto& notifications = platform().notifications();
    listen("default", notifications.defaultCenter());
    listen("workspace", notifications.workspaceCenter());
    listen("distributed", notifications.distributedCenter());
  }

  void listen(const std::string& name, NotificationCenter& center) {
    for (const std::string_view what : {notification::activeSpaceDidChange, notification::didWake,
                                        notification::didChangeScreenParameters, notification::interfaceThemeChanged}) {
      observers_.push_back(
          center.observe(what, [this, name, what] { heard_.push_back(name + " " + std::string(what)); }));
    }
  }

  static std::string said(const char* center, std::string_view what) { return center + (" " + std::string(what)); }

  std::vector<std::string> heard_;
  std::vector<Registration> observers_;
};

TEST_F(SimulatedNotificationsTest, ReportDesktopChangesOnTheWorkspaceCenter) {
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(heard_, std::vector{said("workspace", notification::activeSpaceDidChange)});
}

TEST_F(SimulatedNotificationsTest, ReportWakingOnTheWorkspaceCenter) {
  desktop.sleepFor(1h);
  EXPECT_EQ(heard_, std::vector{said("workspace", notification::didWake)});
}

TEST_F(SimulatedNotificationsTest, ReportScreenChangesOnTheDefaultCenter) {
  desktop.setScreens({});
  EXPECT_EQ(heard_, std::vector{said("default", notification::didChangeScreenParameters)});
}

TEST_F(SimulatedNotificationsTest, ReportTheAppearanceOnTheDistributedCenter) {
  desktop.setAppearance(platform::Appearance::Dark);
  EXPECT_EQ(heard_, std::vector{said("distributed", notification::interfaceThemeChanged)});
}

TEST_F(SimulatedNotificationsTest, KeepTheCentersApart) {
  platform().notifications().defaultCenter().post(notification::didWake);
  EXPECT_EQ(heard_, std::vector{said("default", notification::didWake)});
}

TEST_F(SimulatedNotificationsTest, ComeMoreThanOnceWhereTheyAreDuplicated) {
  desktop.faults.extraActiveSpaceNotices = 2;
  user.swipes(Right);
  desktop.advance(1s);
  EXPECT_EQ(heard_.size(), 3U);
}

}  // namespace
}  // namespace roomlattice::tests
