#include "platform/linux/bus/SleepWatch.h"

#include "support/InProcessNotificationCenter.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

TEST(SleepWatch, PostsThatTheMachineHasWokenButNotThatItGoesToSleep) {
  X11Session session({.windowManager = std::nullopt});
  const QtApplication qt;
  InProcessNotificationCenter center;
  int posts = 0;
  const auto observation = center.observe(platform::notification::didWake, [&] { ++posts; });
  platform::x11::MessageBus bus(platform::x11::MessageBus::Kind::System);
  const platform::x11::SleepWatch watch(bus, center);
  const auto prepareForSleep = [&](const std::string& sleeping) {
    session.run({"dbus-send", "--system", "--type=signal", "/org/freedesktop/login1",
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
      session.run({"dbus-send", "--system", "--type=signal", "/test", "test.Test.Done"});
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
