#include "platform/linux/bus/BusMessage.h"

namespace roomlattice::platform::linux {

std::string BusMessage::sender() const {
  const char* sender = message_ == nullptr ? nullptr : sd_bus_message_get_sender(message_.get());
  return sender == nullptr ? "" : sender;
}

bool BusMessage::rewindTo(std::size_t index) const {
  if (message_ == nullptr || sd_bus_message_rewind(message_.get(), 1) < 0) {
    return false;
  }
  for (; index > 0; --index) {
    if (sd_bus_message_skip(message_.get(), nullptr) <= 0) {
      return false;
    }
  }
  return true;
}

bool BusMessage::rewindToProperty(const std::string& key) const {
  if (!rewindTo(0) || typeOfNext() != "a{sv}" || !enter('a')) {
    return false;
  }
  while (!atEnd()) {
    std::string name;
    if (!enter('e') || !read(name)) {
      return false;
    }
    if (name == key) {
      return true;
    }
    if (sd_bus_message_skip(message_.get(), "v") < 0 || !leave()) {
      return false;
    }
  }
  return false;
}

std::string BusMessage::typeOfNext() const {
  char type = 0;
  const char* contents = nullptr;
  if (sd_bus_message_peek_type(message_.get(), &type, &contents) <= 0) {
    return "";
  }
  switch (type) {
    case SD_BUS_TYPE_ARRAY:
      return std::string("a") + contents;
    case SD_BUS_TYPE_STRUCT:
      return std::string("(") + contents + ")";
    default:
      return {type};
  }
}

void BusMessage::enterVariants() const {
  while (typeOfNext() == "v" && enter('v')) {
  }
}

bool BusMessage::read(bool& value) const {
  int number = 0;
  const bool isRead = sd_bus_message_read_basic(message_.get(), 'b', &number) > 0;
  value = number != 0;
  return isRead;
}

bool BusMessage::read(std::int32_t& value) const {
  return sd_bus_message_read_basic(message_.get(), 'i', &value) > 0;
}

bool BusMessage::read(std::uint32_t& value) const {
  return sd_bus_message_read_basic(message_.get(), 'u', &value) > 0;
}

bool BusMessage::read(double& value) const {
  return sd_bus_message_read_basic(message_.get(), 'd', &value) > 0;
}

bool BusMessage::read(std::string& value) const {
  const char* text = nullptr;
  if (sd_bus_message_read_basic(message_.get(), 's', &text) <= 0) {
    return false;
  }
  value = text;
  return true;
}

bool BusMessage::read(AnyValue&) const {
  return sd_bus_message_skip(message_.get(), "v") > 0;
}

bool BusMessage::enter(char container) const {
  return sd_bus_message_enter_container(message_.get(), container, nullptr) > 0;
}

bool BusMessage::leave() const {
  return sd_bus_message_exit_container(message_.get()) >= 0;
}

bool BusMessage::atEnd() const {
  return sd_bus_message_at_end(message_.get(), 0) != 0;
}

}  // namespace roomlattice::platform::linux
