#include "platform/linux/bus/SleepWatch.h"

#include "support/InProcessNotificationCenter.h"
#include "tests/linux/session/BusDaemon.h"
#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

TEST(SleepWatch, PostsThatTheMachineHasWokenButNotThatItGoesToSleep) {
  const TemporaryFolder folder;
  const BusDaemon daemon(folder.path());
  const ToolkitApplication<QCoreApplication> qt;
  InProcessNotificationCenter center;
  int posts = 0;
  const auto observation = center.observe(platform::notification::didWake, [&] { ++posts; });
  platform::linux::MessageBus bus(platform::linux::MessageBus::Kind::System);
  const platform::linux::SleepWatch watch(bus, center);
  const auto prepareForSleep = [&](const std::string& sleeping) {
    outputOf({"dbus-send", "--system", "--type=signal", "/org/freedesktop/login1",
              "org.freedesktop.login1.Manager.PrepareForSleep", "boolean:" + sleeping});
  };
  // Again and again, as nobody knows when the watch has begun to hear.
  EXPECT_TRUE(waitFor([&] {
    prepareForSleep("false");
    return posts > 0;
  }));
  bool heard = false;
  const auto listening = bus.observeSignal(QStringLiteral("/test"), QStringLiteral("test.Test"), QStringLiteral("Done"),
                                           [&](const QDBusMessage&) { heard = true; });
  const auto settled = [&] {
    heard = false;
    return waitFor([&] {
      outputOf({"dbus-send", "--system", "--type=signal", "/test", "test.Test.Done"});
      return heard;
    });
  };
  ASSERT_TRUE(settled());
  const int before = posts;
  prepareForSleep("true");
  ASSERT_TRUE(settled());
  EXPECT_EQ(posts, before);
}

}  // namespace
}  // namespace roomlattice::tests
