#include "platform/linux/bus/BusName.h"

#include <utility>

namespace roomlattice::platform::linux {
namespace {

// D-Bus: the answers to RequestName by which the name is ours.
constexpr std::uint32_t primaryOwner = 1;
constexpr std::uint32_t alreadyOwner = 4;

}  // namespace

BusName::BusName(MessageBus& bus, std::string name, std::function<void(Ownership)> answered, WhenTaken whenTaken)
    : bus_(bus), name_(std::move(name)), answered_(std::move(answered)) {
  if (bus_.raw() != nullptr) {
    const std::uint64_t flags = whenTaken == WhenTaken::Wait ? SD_BUS_NAME_QUEUE : 0;
    sd_bus_request_name_async(bus_.raw(), &question_, name_.c_str(), flags, answer, this);
    bus_.listen();
  }
}

BusName::~BusName() {
  sd_bus_slot_unref(question_);
  if (bus_.raw() != nullptr) {
    const auto ignore = [](sd_bus_message*, void*, sd_bus_error*) { return 0; };
    sd_bus_release_name_async(bus_.raw(), nullptr, name_.c_str(), ignore, nullptr);
    bus_.listen();
  }
}

int BusName::answer(sd_bus_message* message, void* name, sd_bus_error*) {
  const BusMessage given(message);
  const std::uint32_t result = given.isError() ? 0 : given.argument<std::uint32_t>(0).value_or(0);
  // It may end this object.
  const auto answered = static_cast<BusName*>(name)->answered_;
  answered(result == primaryOwner || result == alreadyOwner ? Ownership::Ours : Ownership::Refused);
  return 0;
}

}  // namespace roomlattice::platform::linux
