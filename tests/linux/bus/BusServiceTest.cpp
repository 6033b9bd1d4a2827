#include "platform/linux/bus/BusService.h"

#include "tests/linux/session/BusFixture.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::linux::BusCall;
using platform::linux::BusMessage;
using platform::linux::BusService;
using platform::linux::BusSignal;
using platform::linux::MessageBus;
using ::testing::ElementsAre;

constexpr const char* name = "test.Service";
const BusSignal signal{.path = "/test", .interface = "test.Test", .name = "Said"};

const BusCall ask{.path = "/test", .interface = "test.Test", .method = "Ask"};

class BusServiceTest : public BusTest {
 protected:
  static void say(FakeService& speaker, const std::string& text, const std::string& destination = {}) {
    speaker.emit(
        signal.path, signal.interface, signal.name,
        [&](sd_bus_message* message) { sd_bus_message_append(message, "s", text.c_str()); }, destination);
  }

  MessageBus bus_{MessageBus::Kind::Session};
  std::vector<std::string> heard_;
  MessageBus::Handler hear_ = [this](const BusMessage& message) {
    heard_.push_back(message.argument<std::string>(0).value_or("?"));
  };
};

TEST_F(BusServiceTest, IsHeardOnlyFromTheOwnerOfItsName) {
  FakeService owner(daemon_.address(), name);
  owner.answerWith([](sd_bus_message*) {});
  FakeService stranger(daemon_.address(), "test.Stranger");
  stranger.answerWith([](sd_bus_message*) {});
  BusService service(bus_, name);
  const Registration signals = service.observeSignal(signal, hear_);
  // Once it has answered, whoever listens to its signals is known to it and to the bus.
  ASSERT_TRUE(service.callAndWait(ask, 10s));
  say(stranger, "to all");
  say(stranger, "to you", owner.lastCaller());
  // Its answer comes after what it has said, which the bus may otherwise deliver later than what the owner says.
  ASSERT_TRUE(BusService(bus_, "test.Stranger").callAndWait(ask, 10s));
  say(owner, "mine");
  say(owner, "yours", owner.lastCaller());
  EXPECT_TRUE(waitFor([this] { return heard_.size() >= 2; }));
  EXPECT_THAT(heard_, ElementsAre("mine", "yours"));
}

TEST_F(BusServiceTest, IsHeardFromEachOwnerInTurn) {
  std::vector<bool> owners;
  BusService service(bus_, name, [&](bool hasOwner) { owners.push_back(hasOwner); });
  const Registration signals = service.observeSignal(signal, hear_);
  ASSERT_TRUE(bus_.waitUntilConnected(10s));
  for (const char* text : {"first", "second"}) {
    FakeService owner(daemon_.address(), name);
    // More of what the first one has said may still be on its way.
    EXPECT_TRUE(waitFor([&] {
      say(owner, text);
      return !heard_.empty() && heard_.back() == text;
    })) << text;
  }
  EXPECT_TRUE(waitFor([&] { return owners.size() == 4; }));
  EXPECT_THAT(owners, ElementsAre(true, false, true, false));
}

TEST_F(BusServiceTest, IsNotHeardAfterTheRegistrationHasEnded) {
  FakeService owner(daemon_.address(), name);
  owner.answerWith([](sd_bus_message*) {});
  BusService service(bus_, name);
  Registration ended = service.observeSignal(signal, [](const BusMessage&) { FAIL(); });
  const Registration kept = service.observeSignal(signal, hear_);
  ASSERT_TRUE(service.callAndWait(ask, 10s));
  ended.cancel();
  say(owner, "something");
  EXPECT_TRUE(waitFor([this] { return !heard_.empty(); }));
}

TEST_F(BusServiceTest, IsNotReplacedByWhoeverSaysSo) {
  FakeService owner(daemon_.address(), name);
  owner.answerWith([](sd_bus_message*) {});
  FakeService stranger(daemon_.address(), "");
  BusService service(bus_, name, [](bool) { FAIL(); });
  const Registration signals = service.observeSignal(signal, hear_);
  ASSERT_TRUE(service.callAndWait(ask, 10s));
  stranger.emit(
      "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
      [](sd_bus_message* message) { sd_bus_message_append(message, "sss", name, ":1.0", ":1.99"); },
      owner.lastCaller());
  EXPECT_TRUE(waitFor([&] {
    say(owner, "mine");
    return heard_.size() > 1;
  }));
}

}  // namespace
}  // namespace roomlattice::tests
