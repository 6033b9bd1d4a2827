#include "platform/linux/bus/MessageBus.h"

#include "platform/linux/bus/BusAddress.h"
#include "platform/linux/bus/BusWriter.h"

#include <algorithm>
#include <poll.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

// As many messages are delivered together, and as long, before others have their turn in the event loop.
constexpr int messagesPerTurn = 100;
constexpr milliseconds timePerTurn{10};

MessagePointer messageOf(sd_bus* bus, const BusCall& call) {
  sd_bus_message* message = nullptr;
  if (bus == nullptr || sd_bus_message_new_method_call(bus, &message, call.service.c_str(), call.path.c_str(),
                                                       call.interface.c_str(), call.method.c_str()) < 0) {
    return nullptr;
  }
  BusWriter writer(message);
  for (const std::string& argument : call.arguments) {
    writer.write(argument);
  }
  if (call.variant) {
    writer.write(BusVariant(*call.variant));
  }
  sd_bus_message_set_auto_start(message, call.activation == BusCall::Activation::Allowed ? 1 : 0);
  return MessagePointer(message);
}

std::uint64_t microsecondsOf(Clock::duration duration) {
  return static_cast<std::uint64_t>(std::max<microseconds::rep>(std::chrono::ceil<microseconds>(duration).count(), 1));
}

int deliver(sd_bus_message* message, void* handler, sd_bus_error*) {
  // It may end its own registration, and so itself.
  const auto called = *static_cast<std::shared_ptr<MessageBus::Handler>*>(handler);
  (*called)(BusMessage(message));
  return 0;
}

int ignore(sd_bus_message*, void*, sd_bus_error*) {
  return 0;
}

/// What the library calls back for as long as it may.
class Subscription {
 public:
  explicit Subscription(MessageBus::Handler handler)
      : handler_(std::make_shared<MessageBus::Handler>(std::move(handler))) {}
  ~Subscription() { sd_bus_slot_unref(slot_); }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;

  sd_bus_slot** slot() { return &slot_; }
  void* handler() { return &handler_; }

 private:
  std::shared_ptr<MessageBus::Handler> handler_;
  sd_bus_slot* slot_ = nullptr;
};

Registration registrationOf(std::shared_ptr<Subscription> subscription) {
  return Registration([subscription = std::move(subscription)]() mutable { subscription.reset(); });
}

std::string ruleOf(const BusSignal& signal) {
  std::string rule = "type='signal',sender='" + signal.sender + "',path='" + signal.path + "',interface='" +
                     signal.interface + "',member='" + signal.name + "'";
  if (!signal.firstArgument.empty()) {
    rule += ",arg0='" + signal.firstArgument + "'";
  }
  if (!signal.firstArgumentWithin.empty()) {
    rule += ",arg0namespace='" + signal.firstArgumentWithin + "'";
  }
  return rule;
}

}  // namespace

MessageBus::MessageBus(Kind kind) {
  if (const auto address = kind == Kind::System ? systemBusAddress() : sessionBusAddress()) {
    bus_ = openBus(*address);
  }
  if (bus_ != nullptr) {
    readable_.setSocket(sd_bus_get_fd(bus_.get()));
    writable_.setSocket(sd_bus_get_fd(bus_.get()));
    for (QSocketNotifier* notifier : {&readable_, &writable_}) {
      QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { process(); });
    }
  }
  listen();
}

bool MessageBus::waitUntilConnected(milliseconds limit) {
  const auto end = Clock::now() + limit;
  while (bus_ != nullptr && !isConnected() && sd_bus_is_open(bus_.get()) > 0) {
    const auto left = end - Clock::now();
    if (left <= Clock::duration::zero()) {
      break;
    }
    if (!processOne()) {
      sd_bus_wait(bus_.get(), microsecondsOf(left));
    }
  }
  listen();
  return isConnected();
}

bool MessageBus::isConnected() const {
  return bus_ != nullptr && sd_bus_is_ready(bus_.get()) > 0;
}

Registration MessageBus::observeSignal(const BusSignal& signal, Handler handler) {
  if (bus_ == nullptr) {
    return {};
  }
  auto subscription = std::make_shared<Subscription>(std::move(handler));
  sd_bus_add_match_async(bus_.get(), subscription->slot(), ruleOf(signal).c_str(), deliver, ignore,
                         subscription->handler());
  listen();
  return registrationOf(std::move(subscription));
}

Registration MessageBus::observeLoss(std::function<void()> handler) {
  return lossListeners_.add(std::move(handler));
}

Registration MessageBus::call(const BusCall& call, milliseconds limit, Handler handler) {
  const MessagePointer message = messageOf(bus_.get(), call);
  if (message == nullptr) {
    return {};
  }
  auto subscription = std::make_shared<Subscription>(std::move(handler));
  if (sd_bus_call_async(bus_.get(), subscription->slot(), message.get(), deliver, subscription->handler(),
                        microsecondsOf(limit)) < 0) {
    return {};
  }
  listen();
  return registrationOf(std::move(subscription));
}

std::optional<BusMessage> MessageBus::callAndWait(const BusCall& call, milliseconds limit) {
  const auto end = Clock::now() + limit;
  const MessagePointer message = waitUntilConnected(limit) ? messageOf(bus_.get(), call) : nullptr;
  if (message == nullptr) {
    return std::nullopt;
  }
  sd_bus_message* answer = nullptr;
  const int result = sd_bus_call(bus_.get(), message.get(), microsecondsOf(end - Clock::now()), nullptr, &answer);
  const MessagePointer owner(answer);
  // Others may have been taken in meanwhile, also where the answer did not come.
  listen();
  return result < 0 ? std::nullopt : std::optional(BusMessage(answer));
}

void MessageBus::send(const BusCall& call) {
  if (const MessagePointer message = messageOf(bus_.get(), call)) {
    sd_bus_message_set_expect_reply(message.get(), 0);
    sd_bus_send(bus_.get(), message.get(), nullptr);
    listen();
  }
}

void MessageBus::process() {
  // An event loop that a handler opens cannot hear of the bus, and need not be woken up for it.
  readable_.setEnabled(false);
  writable_.setEnabled(false);
  const auto end = Clock::now() + timePerTurn;
  for (int count = 0; count < messagesPerTurn && Clock::now() < end && processOne(); ++count) {
  }
  if (sd_bus_is_open(bus_.get()) <= 0 && !std::exchange(lossReported_, true)) {
    lossListeners_.notify();
  }
  listen();
}

bool MessageBus::processOne() {
  const int result = sd_bus_process(bus_.get(), nullptr);
  if (result < 0) {
    // What the bus sends makes no sense, or it has not let anyone in for too long.
    sd_bus_close(bus_.get());
  }
  return result > 0;
}

void MessageBus::listen() {
  if (bus_ == nullptr) {
    return;
  }
  const int file = sd_bus_get_fd(bus_.get());
  const int events = file < 0 ? 0 : sd_bus_get_events(bus_.get());
  readable_.setEnabled(false);
  writable_.setEnabled(false);
  if (events > 0) {
    // Where the bus has several addresses, the file of one may follow that of another.
    readable_.setSocket(file);
    writable_.setSocket(file);
    readable_.setEnabled((events & POLLIN) != 0);
    writable_.setEnabled((events & POLLOUT) != 0);
  }
  // Nothing comes of a connection that was given up outside of the event loop, where its loss is told.
  const bool isLossUntold = sd_bus_is_open(bus_.get()) <= 0 && !lossReported_;
  std::uint64_t due = 0;
  if (isLossUntold || sd_bus_get_timeout(bus_.get(), &due) > 0) {
    const auto left = microseconds(due) - Clock::now().time_since_epoch();
    due_.start(std::chrono::ceil<milliseconds>(std::max<Clock::duration>(left, Clock::duration::zero())));
  } else {
    due_.stop();
  }
}

}  // namespace roomlattice::platform::linux
