#include "platform/linux/bus/MessageBus.h"

#include "platform/linux/bus/BusName.h"
#include "platform/linux/bus/BusObject.h"
#include "tests/linux/session/BusFixture.h"

#include <csignal>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::linux::BusCall;
using platform::linux::BusError;
using platform::linux::BusMessage;
using platform::linux::BusName;
using platform::linux::BusObject;
using platform::linux::BusWriter;
using platform::linux::MessageBus;

const BusCall call{.service = "test.Service", .path = "/test", .interface = "test.Test", .method = "Ask"};

/// Where clients connect and are not let in.
class RefusingBus {
 public:
  explicit RefusingBus(const std::string& path)
      : path_(path), socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un place{.sun_family = AF_UNIX};
    path.copy(static_cast<char*>(place.sun_path), sizeof(place.sun_path) - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof(place)), 0);
    EXPECT_EQ(listen(socket_, 1), 0);
  }
  ~RefusingBus() { close(socket_); }
  RefusingBus(const RefusingBus&) = delete;
  RefusingBus& operator=(const RefusingBus&) = delete;

  std::string address() const { return "unix:path=" + path_; }

  /// Waits for a client.
  void refuse() const {
    constexpr std::string_view refusal = "REJECTED\r\nREJECTED\r\nREJECTED\r\n";
    const int client = accept(socket_, nullptr, nullptr);
    EXPECT_EQ(write(client, refusal.data(), refusal.size()), static_cast<ssize_t>(refusal.size()));
    close(client);
  }

 private:
  std::string path_;
  int socket_;
};

class MessageBusTest : public BusTest {
 protected:
  std::unique_ptr<FakeService> serviceThatAnswers(const std::string& text) {
    auto service = std::make_unique<FakeService>(daemon_.address(), call.service);
    service->answerWith([text](sd_bus_message* answer) { sd_bus_message_append(answer, "s", text.c_str()); });
    return service;
  }
};

TEST_F(MessageBusTest, HandsAnAnswerOverOnALaterTurn) {
  const auto service = serviceThatAnswers("yes");
  MessageBus bus(MessageBus::Kind::Session);
  std::string heard;
  const Registration answer =
      bus.call(call, 10s, [&](const BusMessage& message) { heard = message.argument<std::string>(0).value_or("?"); });
  EXPECT_EQ(heard, "");
  EXPECT_TRUE(waitFor([&] { return heard == "yes"; }));
}

TEST_F(MessageBusTest, WaitsForAnAnswer) {
  const auto service = serviceThatAnswers("yes");
  MessageBus bus(MessageBus::Kind::System);
  const auto answer = bus.callAndWait(call, 10s);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->argument<std::string>(0), "yes");
}

TEST_F(MessageBusTest, DeliversNothingWhileItWaits) {
  const auto service = serviceThatAnswers("yes");
  MessageBus bus(MessageBus::Kind::Session);
  int heard = 0;
  const Registration answer = bus.call(call, 10s, [&](const BusMessage&) { ++heard; });
  ASSERT_TRUE(bus.callAndWait(call, 10s));
  EXPECT_EQ(heard, 0);
  EXPECT_TRUE(waitFor([&] { return heard == 1; }));
}

TEST_F(MessageBusTest, DeliversWhatCameWhileItWaitedInVain) {
  const auto service = serviceThatAnswers("yes");
  const FakeService mute(daemon_.address(), "test.Mute");
  MessageBus bus(MessageBus::Kind::Session);
  ASSERT_TRUE(bus.waitUntilConnected(10s));
  int heard = 0;
  const Registration answer = bus.call(call, 10min, [&](const BusMessage&) { ++heard; });
  BusCall toMute = call;
  toMute.service = "test.Mute";
  EXPECT_FALSE(bus.callAndWait(toMute, 500ms));
  EXPECT_EQ(heard, 0);
  EXPECT_TRUE(waitFor([&] { return heard == 1; }));
}

TEST_F(MessageBusTest, HandsAnErrorOverWhereNobodyAnswers) {
  const FakeService mute(daemon_.address(), call.service);
  MessageBus bus(MessageBus::Kind::Session);
  int errors = 0;
  const Registration late =
      bus.call(call, 5ms, [&](const BusMessage& message) { errors += message.isError() ? 1 : 0; });
  BusCall toNobody = call;
  toNobody.service = "test.Nobody";
  const Registration never =
      bus.call(toNobody, 10s, [&](const BusMessage& message) { errors += message.isError() ? 1 : 0; });
  EXPECT_TRUE(waitFor([&] { return errors == 2; }));
  EXPECT_FALSE(bus.callAndWait(call, 5ms));
  EXPECT_FALSE(bus.callAndWait(toNobody, 10s));
}

TEST_F(MessageBusTest, ForgetsACallWhoseRegistrationHasEnded) {
  const auto service = serviceThatAnswers("yes");
  MessageBus bus(MessageBus::Kind::Session);
  bool first = false;
  bool second = false;
  Registration forgotten = bus.call(call, 10s, [&](const BusMessage&) { first = true; });
  forgotten.cancel();
  const Registration kept = bus.call(call, 10s, [&](const BusMessage&) { second = true; });
  EXPECT_TRUE(waitFor([&] { return second; }));
  EXPECT_FALSE(first);
}

TEST_F(MessageBusTest, LetsAHandlerEndItself) {
  const auto service = serviceThatAnswers("yes");
  MessageBus bus(MessageBus::Kind::Session);
  std::string heard;
  Registration answer;
  answer = bus.call(call, 10s, [&heard, &answer, text = std::string(100, 'x')](const BusMessage&) {
    answer.cancel();
    heard = text;
  });
  EXPECT_TRUE(waitFor([&] { return heard == std::string(100, 'x'); }));
}

TEST_F(MessageBusTest, IsNotWaitedForLongerThanWanted) {
  daemon_.signal(SIGSTOP);
  MessageBus bus(MessageBus::Kind::Session);
  bool answered = false;
  const Registration answer = bus.call(call, 10s, [&](const BusMessage& message) { answered = !message.isError(); });
  EXPECT_FALSE(bus.waitUntilConnected(5ms));
  EXPECT_FALSE(bus.callAndWait(call, 5ms));
  daemon_.signal(SIGCONT);
  const auto service = serviceThatAnswers("yes");
  EXPECT_TRUE(waitFor([&] { return bus.isConnected(); }));
}

TEST_F(MessageBusTest, SendsWhatWasAskedForBeforeItWasConnected) {
  const auto service = serviceThatAnswers("yes");
  daemon_.signal(SIGSTOP);
  MessageBus bus(MessageBus::Kind::Session);
  bool answered = false;
  const Registration answer = bus.call(call, 10s, [&](const BusMessage& message) { answered = !message.isError(); });
  EXPECT_FALSE(bus.isConnected());
  daemon_.signal(SIGCONT);
  EXPECT_TRUE(waitFor([&] { return answered; }));
}

TEST_F(MessageBusTest, SendsTextThatAMessageCannotHoldAsReplaced) {
  std::vector<std::string> heard;
  const auto hear = [&heard](const BusMessage& asked, BusWriter&) -> std::optional<BusError> {
    for (std::size_t index = 0; index < 3; ++index) {
      heard.push_back(asked.argument<std::string>(index).value_or("nothing"));
    }
    return std::nullopt;
  };
  MessageBus bus(MessageBus::Kind::Session);
  const BusObject object(
      bus, call.path,
      {.name = call.interface, .methods = {{call.method, "ssv", "", hear}}, .properties = {}, .signalTypes = {}});
  const BusName name(bus, call.service);
  BusCall question = call;
  question.arguments = {"\xff", "a \uFFFE"};
  question.variant = "b \uFDD0";
  std::optional<bool> refused;
  const Registration answer = bus.call(question, 10s, [&](const BusMessage& message) { refused = message.isError(); });
  EXPECT_TRUE(waitFor([&] { return refused.has_value(); }));
  EXPECT_EQ(refused, false);
  EXPECT_EQ(heard, (std::vector<std::string>{"\uFFFD", "a \uFFFD", "b \uFFFD"}));
}

TEST_F(MessageBusTest, TellsOnceThatTheBusHasGone) {
  const FakeService mute(daemon_.address(), call.service);
  MessageBus bus(MessageBus::Kind::Session);
  ASSERT_TRUE(bus.waitUntilConnected(10s));
  int losses = 0;
  bool answered = false;
  const Registration loss = bus.observeLoss([&] { ++losses; });
  const Registration answer = bus.call(call, 10s, [&](const BusMessage& message) { answered = message.isError(); });
  daemon_.stop();
  EXPECT_TRUE(waitFor([&] { return losses == 1; }));
  EXPECT_TRUE(answered);
  EXPECT_FALSE(bus.isConnected());
  EXPECT_FALSE(bus.callAndWait(call, 10s));
  EXPECT_FALSE(bus.call(call, 10s, [](const BusMessage&) {}));
}

TEST_F(MessageBusTest, TellsThatItWasNotLetInWhileItWaited) {
  const RefusingBus refusing(folder_.path() / "refusing");
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", refusing.address());
  MessageBus bus(MessageBus::Kind::Session);
  int losses = 0;
  const Registration loss = bus.observeLoss([&] { ++losses; });
  refusing.refuse();
  EXPECT_FALSE(bus.waitUntilConnected(10s));
  EXPECT_EQ(losses, 0);
  EXPECT_TRUE(waitFor([&] { return losses == 1; }));
}

TEST_F(MessageBusTest, LetsRegistrationsOutliveIt) {
  Registration signal;
  Registration answer;
  {
    MessageBus bus(MessageBus::Kind::Session);
    ASSERT_TRUE(bus.waitUntilConnected(10s));
    signal = bus.observeSignal({.sender = "test.Service", .path = "/test", .interface = "test.Test", .name = "Done"},
                               [](const BusMessage&) { FAIL(); });
    answer = bus.call(call, 10s, [](const BusMessage&) { FAIL(); });
  }
  QCoreApplication::processEvents();
}

class MessageBusWithoutABusTest : public BusTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MessageBusWithoutABusTest, IsAskedInVain) {
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", GetParam());
  environment.set("XDG_RUNTIME_DIR", folder_.path().string());
  MessageBus bus(MessageBus::Kind::Session);
  EXPECT_FALSE(bus.waitUntilConnected(10s));
  EXPECT_FALSE(bus.isConnected());
  EXPECT_FALSE(bus.call(call, 10s, [](const BusMessage&) {}));
  EXPECT_FALSE(bus.callAndWait(call, 10s));
  bus.send(call);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, MessageBusWithoutABusTest,
                         ::testing::Values("", "unix:path=/nonexistent", "garbage", "unix:", "autolaunch:"));

}  // namespace
}  // namespace roomlattice::tests
