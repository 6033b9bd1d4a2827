#include "platform/linux/bus/BusObject.h"

#include "support/Fatal.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// As many of the flags as an entry of the table holds.
constexpr std::uint64_t flagBits = (std::uint64_t{1} << 56U) - 1;

std::uint64_t flagOf(BusProperty::Changes changes) {
  switch (changes) {
    case BusProperty::Changes::ToldWithValue:
      return SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE;
    case BusProperty::Changes::ToldWithoutValue:
      return SD_BUS_VTABLE_PROPERTY_EMITS_INVALIDATION;
    case BusProperty::Changes::Never:
      break;
  }
  return SD_BUS_VTABLE_PROPERTY_CONST;
}

}  // namespace

BusObject::BusObject(MessageBus& bus, std::string path, BusInterface interface)
    : bus_(bus), path_(std::move(path)), interface_(std::move(interface)) {
  table_.push_back(SD_BUS_VTABLE_START(0));
  for (const BusMethod& method : interface_.methods) {
    // The macro joins the literals of two lists of names; this is both.
    table_.push_back(SD_BUS_METHOD_WITH_NAMES(method.name.c_str(), method.argumentTypes.c_str(), kept(method.names),
                                              method.resultTypes.c_str(), , call, SD_BUS_VTABLE_UNPRIVILEGED));
  }
  for (const BusProperty& property : interface_.properties) {
    table_.push_back(SD_BUS_PROPERTY(property.name.c_str(), property.type.c_str(), readProperty, 0,
                                     flagOf(property.changes) & flagBits));
  }
  for (const BusSignalType& signal : interface_.signalTypes) {
    table_.push_back(
        SD_BUS_SIGNAL_WITH_NAMES(signal.name.c_str(), signal.argumentTypes.c_str(), kept(signal.names), 0));
  }
  table_.push_back(SD_BUS_VTABLE_END);
  if (bus_.raw() != nullptr && sd_bus_add_object_vtable(bus_.raw(), &slot_, path_.c_str(), interface_.name.c_str(),
                                                        table_.data(), this) == -EINVAL) {
    fatal("the bus library cannot make sense of the interface " + interface_.name);
  }
}

BusObject::~BusObject() {
  sd_bus_slot_unref(slot_);
}

/// The names as the library wants them, each with a zero behind it.
const char* BusObject::kept(const std::vector<std::string>& names) {
  std::string& all = names_.emplace_back();
  for (const std::string& name : names) {
    all += name + '\0';
  }
  return all.c_str();
}

void BusObject::emit(const std::string& signal, const std::function<void(BusWriter&)>& write) {
  sd_bus_message* made = nullptr;
  if (bus_.raw() == nullptr ||
      sd_bus_message_new_signal(bus_.raw(), &made, path_.c_str(), interface_.name.c_str(), signal.c_str()) < 0) {
    return;
  }
  const MessagePointer message(made);
  BusWriter writer(message.get());
  write(writer);
  sd_bus_send(bus_.raw(), message.get(), nullptr);
  bus_.listen();
}

void BusObject::emitPropertiesChanged(const std::vector<std::string>& names) {
  if (bus_.raw() == nullptr) {
    return;
  }
  // The library takes a list that ends in a null, and changes nothing in it.
  std::vector<char*> list;
  list.reserve(names.size() + 1);
  for (const std::string& name : names) {
    list.push_back(const_cast<char*>(name.c_str()));
  }
  list.push_back(nullptr);
  sd_bus_emit_properties_changed_strv(bus_.raw(), path_.c_str(), interface_.name.c_str(), list.data());
  bus_.listen();
}

int BusObject::call(sd_bus_message* call, void* object, sd_bus_error* error) {
  const std::vector<BusMethod>& methods = static_cast<BusObject*>(object)->interface_.methods;
  const auto method = std::ranges::find(methods, sd_bus_message_get_member(call), &BusMethod::name);
  sd_bus_message* made = nullptr;
  if (method == methods.end() || sd_bus_message_new_method_return(call, &made) < 0) {
    return -EINVAL;
  }
  const MessagePointer answer(made);
  // The bus lets texts pass that the library does not take, and no method has a use for less than it asks for.
  if (sd_bus_message_skip(call, method->argumentTypes.c_str()) < 0) {
    return sd_bus_error_set(error, SD_BUS_ERROR_INVALID_ARGS, "a text among the arguments cannot be read");
  }
  BusWriter writer(answer.get());
  if (const std::optional<BusError> refusal = method->run(BusMessage(call), writer)) {
    return sd_bus_error_set(error, refusal->name.c_str(), sendable(refusal->text).c_str());
  }
  return sd_bus_send(nullptr, answer.get(), nullptr);
}

int BusObject::readProperty(sd_bus*, const char*, const char*, const char* property, sd_bus_message* value,
                            void* object, sd_bus_error*) {
  const std::vector<BusProperty>& properties = static_cast<BusObject*>(object)->interface_.properties;
  const auto found = std::ranges::find(properties, property, &BusProperty::name);
  if (found == properties.end()) {
    return -EINVAL;
  }
  BusWriter writer(value);
  found->read(writer);
  return 1;
}

}  // namespace roomlattice::platform::linux
