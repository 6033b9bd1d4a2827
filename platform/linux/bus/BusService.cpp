#include "platform/linux/bus/BusService.h"

#include <utility>

namespace roomlattice::platform::linux {

BusService::BusService(MessageBus& bus, std::string name, std::function<void(bool hasOwner)> ownerChanged)
    : bus_(bus), name_(std::move(name)), ownerChanged_(std::move(ownerChanged)) {
  ownerChanges_ = bus.observeSignal(
      {.sender = busName, .path = busPath, .interface = busName, .name = "NameOwnerChanged", .firstArgument = name_},
      [this](const BusMessage& message) { ownerNamed(message); });
  ownerQuestion_ = bus.call(
      {.service = busName, .path = busPath, .interface = busName, .method = "GetNameOwner", .arguments = {name_}},
      usualAnswerLimit, [this](const BusMessage& answer) {
        owner_ = answer.isError() ? "" : answer.argument<std::string>(0).value_or("");
      });
}

Registration BusService::observeSignal(BusSignal signal, MessageBus::Handler handler) {
  signal.sender = name_;
  return bus_.observeSignal(signal, [this, handler = std::move(handler)](const BusMessage& message) {
    // Anybody can send us a signal without being asked.
    if (!owner_.empty() && message.sender() == owner_) {
      handler(message);
    }
  });
}

Registration BusService::call(BusCall call, std::chrono::milliseconds limit, MessageBus::Handler handler) {
  call.service = name_;
  return bus_.call(call, limit, std::move(handler));
}

std::optional<BusMessage> BusService::callAndWait(BusCall call, std::chrono::milliseconds limit) {
  call.service = name_;
  return bus_.callAndWait(call, limit);
}

void BusService::send(BusCall call) {
  call.service = name_;
  bus_.send(call);
}

void BusService::ownerNamed(const BusMessage& message) {
  if (message.sender() == busName && message.argument<std::string>(0) == name_) {
    owner_ = message.argument<std::string>(2).value_or("");
    ownerChanged_(!owner_.empty());
  }
}

}  // namespace roomlattice::platform::linux
