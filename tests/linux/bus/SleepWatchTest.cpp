#include "platform/linux/bus/SleepWatch.h"

#include "support/InProcessNotificationCenter.h"
#include "tests/linux/session/BusFixture.h"

namespace roomlattice::tests {
namespace {

using platform::linux::BusMessage;
using platform::linux::BusService;
using platform::linux::MessageBus;
using platform::linux::SleepWatch;

constexpr const char* login = "org.freedesktop.login1";
constexpr const char* path = "/org/freedesktop/login1";
constexpr const char* manager = "org.freedesktop.login1.Manager";

class SleepWatchTest : public BusTest {
 protected:
  void prepareForSleepWith(const WriteArguments& arguments) {
    login_.emit(path, manager, "PrepareForSleep", arguments);
  }
  void prepareForSleep(bool sleeping) {
    prepareForSleepWith([sleeping](sd_bus_message* message) { sd_bus_message_append(message, "b", sleeping ? 1 : 0); });
  }

  /// Whether all that was emitted before has been heard.
  bool settled() {
    bool heard = false;
    const auto listening = service_.observeSignal({.path = "/test", .interface = "test.Test", .name = "Done"},
                                                  [&](const BusMessage&) { heard = true; });
    return waitFor([&] {
      login_.emit("/test", "test.Test", "Done", [](sd_bus_message*) {});
      return heard;
    });
  }

  FakeService login_{daemon_.address(), login};
  InProcessNotificationCenter center_;
  int posts_ = 0;
  platform::Registration observation_ = center_.observe(platform::notification::didWake, [this] { ++posts_; });
  MessageBus bus_{MessageBus::Kind::System};
  BusService service_{bus_, login};
  SleepWatch watch_{bus_, center_};
};

TEST_F(SleepWatchTest, PostsThatTheMachineHasWokenButNotThatItGoesToSleep) {
  // Again and again, as nobody knows when the watch has begun to hear.
  EXPECT_TRUE(waitFor([this] {
    prepareForSleep(false);
    return posts_ > 0;
  }));
  ASSERT_TRUE(settled());
  const int before = posts_;
  prepareForSleep(true);
  ASSERT_TRUE(settled());
  EXPECT_EQ(posts_, before);
}

TEST_F(SleepWatchTest, PostsNothingForWhatIsNoTruthValue) {
  ASSERT_TRUE(settled());
  prepareForSleepWith([](sd_bus_message*) {});
  prepareForSleepWith([](sd_bus_message* message) { sd_bus_message_append(message, "u", 0U); });
  prepareForSleepWith([](sd_bus_message* message) { sd_bus_message_append(message, "ab", 1, 0); });
  ASSERT_TRUE(settled());
  EXPECT_EQ(posts_, 0);
  prepareForSleep(false);
  EXPECT_TRUE(waitFor([this] { return posts_ == 1; }));
}

}  // namespace
}  // namespace roomlattice::tests
