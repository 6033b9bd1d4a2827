#import "platform/macos/MacNotifications.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/macos/MainLoop.h"

namespace roomlattice::platform::macos {
namespace {

const char* const name = "MacNotificationsTestDidChange";

TEST(MacNotificationsTest, CallsObserversInOrderOfRegistration) {
  MacNotifications notifications;
  std::string order;
  NotificationCenter& center = notifications.defaultCenter();
  const Registration first = center.observe(name, [&] { order += "a"; });
  const Registration second = center.observe(name, [&] { order += "b"; });
  const Registration third = center.observe(name, [&] { order += "c"; });
  center.post(name);
  EXPECT_EQ(order, "abc");
}

TEST(MacNotificationsTest, StopsWithTheRegistration) {
  MacNotifications notifications;
  int calls = 0;
  Registration observation = notifications.defaultCenter().observe(name, [&] { ++calls; });
  observation.cancel();
  notifications.defaultCenter().post(name);
  EXPECT_EQ(calls, 0);
}

TEST(MacNotificationsTest, MayEndARegistrationWithinItsOwnCall) {
  MacNotifications notifications;
  int calls = 0;
  Registration observation;
  observation = notifications.defaultCenter().observe(name, [&] {
    ++calls;
    observation.cancel();
  });
  notifications.defaultCenter().post(name);
  notifications.defaultCenter().post(name);
  EXPECT_EQ(calls, 1);
}

TEST(MacNotificationsTest, OutlivesItsCentre) {
  std::optional<MacNotifications> notifications(std::in_place);
  int calls = 0;
  Registration observation = notifications->defaultCenter().observe(name, [&] { ++calls; });
  notifications.reset();
  observation.cancel();
  [[NSNotificationCenter defaultCenter] postNotificationName:@"MacNotificationsTestDidChange" object:nil];
  EXPECT_EQ(calls, 0);
}

TEST(MacNotificationsTest, PostsWithoutAnObjectOnTheSystemsDefaultCentre) {
  MacNotifications notifications;
  int calls = 0;
  const Registration observation = notifications.defaultCenter().observe(name, [&] { ++calls; });
  [[NSNotificationCenter defaultCenter] postNotificationName:@"MacNotificationsTestDidChange" object:nil];
  notifications.workspaceCenter().post(name);
  EXPECT_EQ(calls, 1);
}

struct SystemNotification {
  std::string_view name;
  NSString* systemName;
};

TEST(MacNotificationsTest, ObservesTheWorkspaceUnderItsNames) {
  MacNotifications notifications;
  NSNotificationCenter* workspace = [[NSWorkspace sharedWorkspace] notificationCenter];
  const SystemNotification rows[] = {
      {notification::activeSpaceDidChange, NSWorkspaceActiveSpaceDidChangeNotification},
      {notification::didWake, NSWorkspaceDidWakeNotification},
  };
  for (const SystemNotification& row : rows) {
    int calls = 0;
    const Registration observation = notifications.workspaceCenter().observe(row.name, [&] { ++calls; });
    [workspace postNotificationName:row.systemName object:[NSWorkspace sharedWorkspace]];
    // GNUstep takes what the workspace posts round to all applications first.
    EXPECT_TRUE(tests::runUntil([&] { return calls == 1; })) << row.name;
  }
}

TEST(MacNotificationsTest, ObservesScreenChangesOnTheDefaultCentre) {
  MacNotifications notifications;
  int calls = 0;
  const Registration observation =
      notifications.defaultCenter().observe(notification::didChangeScreenParameters, [&] { ++calls; });
  [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationDidChangeScreenParametersNotification
                                                      object:NSApp];
  EXPECT_EQ(calls, 1);
}

TEST(MacNotificationsTest, HearsOtherProcessesOnTheDistributedCentre) {
  MacNotifications notifications;
  int calls = 0;
  const Registration observation =
      notifications.distributedCenter().observe(notification::interfaceThemeChanged, [&] { ++calls; });
  [[NSDistributedNotificationCenter defaultCenter] postNotificationName:@"AppleInterfaceThemeChangedNotification"
                                                                 object:nil];
  EXPECT_TRUE(tests::runUntil([&] { return calls >= 1; }));
}

TEST(MacNotificationsTest, TellsOfANewAppearanceAgainWhenTheApplicationHasIt) {
  MacNotifications notifications;
  int calls = 0;
  bool turned = false;
  const Registration observation = notifications.distributedCenter().observe(notification::interfaceThemeChanged, [&] {
    if (++calls == 1) {
      dispatch_async(dispatch_get_main_queue(), ^{
        turned = true;
      });
    }
  });
  notifications.distributedCenter().post(notification::interfaceThemeChanged);
  EXPECT_TRUE(tests::runUntil([&] { return turned && calls == 2; }));
}

TEST(MacNotificationsTest, TellsNobodyAgainWhoseRegistrationHasEnded) {
  MacNotifications notifications;
  int calls = 0;
  Registration observation = notifications.distributedCenter().observe(notification::interfaceThemeChanged, [&] {
    ++calls;
    observation.cancel();
  });
  bool turned = false;
  notifications.distributedCenter().post(notification::interfaceThemeChanged);
  ASSERT_TRUE(tests::runUntil([&] { return calls >= 1; }));
  bool* const turn = &turned;
  dispatch_async(dispatch_get_main_queue(), ^{
    *turn = true;
  });
  EXPECT_TRUE(tests::runUntil([&] { return turned; }));
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace roomlattice::platform::macos
