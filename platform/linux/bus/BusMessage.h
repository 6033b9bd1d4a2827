#pragma once

#include "platform/linux/bus/BusTypes.h"
#include "platform/linux/bus/MessagePointer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <systemd/sd-bus.h>
#include <tuple>
#include <vector>

namespace roomlattice::platform::linux {

/// A message that came over D-Bus. Anybody may send anything: whatever is read is checked for its type here, and counts
/// as absent when it is of another one. Texts are UTF-8.
class BusMessage {
 public:
  /// Keeps the message; nothing is read from an absent one.
  explicit BusMessage(sd_bus_message* message) : message_(sd_bus_message_ref(message)) {}

  bool isError() const { return sd_bus_message_is_method_error(message_.get(), nullptr) > 0; }

  /// Whether it stands for an answer that was not given: not in time, or whoever was asked has gone.
  bool isNoReply() const {
    return sd_bus_message_is_method_error(message_.get(), SD_BUS_ERROR_NO_REPLY) > 0 ||
           sd_bus_message_is_method_error(message_.get(), SD_BUS_ERROR_TIMEOUT) > 0;
  }

  /// The unique name of the connection that sent it, as the bus has it.
  std::string sender() const;

  /// The argument at `index`, from 0, also out of variants. A T is a bool, int32_t, uint32_t, double or string, a
  /// tuple of these for a structure, or a vector for an array.
  template <class T>
  std::optional<T> argument(std::size_t index) const {
    return rewindTo(index) ? readNext<T>() : std::nullopt;
  }

  /// What the first argument, a dictionary of variants, has for `key`.
  template <class T>
  std::optional<T> property(const std::string& key) const {
    return rewindToProperty(key) ? readNext<T>() : std::nullopt;
  }

 private:
  bool rewindTo(std::size_t index) const;
  bool rewindToProperty(const std::string& key) const;
  std::string typeOfNext() const;
  void enterVariants() const;

  template <class T>
  std::optional<T> readNext() const {
    enterVariants();
    T value{};
    return typeOfNext() == busType<T>() && read(value) ? std::optional(std::move(value)) : std::nullopt;
  }

  bool read(bool& value) const;
  bool read(std::int32_t& value) const;
  bool read(std::uint32_t& value) const;
  bool read(double& value) const;
  bool read(std::string& value) const;
  bool read(AnyValue& value) const;

  template <class... T>
  bool read(std::tuple<T...>& value) const {
    return enter('r') && std::apply([this](T&... parts) { return (read(parts) && ...); }, value) && leave();
  }
  template <class T>
  bool read(std::vector<T>& value) const {
    if (!enter('a')) {
      return false;
    }
    while (!atEnd()) {
      if (!read(value.emplace_back())) {
        return false;
      }
    }
    return leave();
  }

  bool enter(char container) const;
  bool leave() const;
  bool atEnd() const;

  MessagePointer message_;
};

}  // namespace roomlattice::platform::linux
