#pragma once

#include "platform/linux/bus/BusTypes.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <systemd/sd-bus.h>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {

/// The text as a message can hold it. What is not UTF-8, and the characters that Unicode keeps for no text, become
/// U+FFFD: the library refuses them, and breaks with the bus where they are the reason of a refusal.
std::string sendable(const std::string& text);

/// Writes values of the types that BusTypeOf knows at the end of a message, texts as they are sendable.
class BusWriter {
 public:
  /// The message stays its owner's.
  explicit BusWriter(sd_bus_message* message) : message_(message) {}

  void write(bool value) { writeBoolean(value); }
  void write(std::int32_t value) { writeBasic('i', &value); }
  void write(std::uint32_t value) { writeBasic('u', &value); }
  void write(double value) { writeBasic('d', &value); }
  void write(const std::string& value) { writeBasic('s', sendable(value).c_str()); }
  void write(const char* value) { writeBasic('s', value); }
  void write(const ObjectPath& value) { writeBasic('o', value.path.c_str()); }
  void write(const BusVariant& value);
  void write(const std::vector<std::uint8_t>& bytes);

  template <class... T>
  void write(const std::tuple<T...>& structure) {
    open('r', (busType<T>() + ...));
    std::apply([this](const T&... parts) { (write(parts), ...); }, structure);
    close();
  }
  template <class T>
  void write(const std::vector<T>& array) {
    open('a', busType<T>());
    for (const T& element : array) {
      write(element);
    }
    close();
  }
  template <class Key, class T>
  void write(const std::map<Key, T>& dictionary) {
    const std::string entry = busType<Key>() + busType<T>();
    open('a', "{" + entry + "}");
    for (const auto& [key, value] : dictionary) {
      open('e', entry);
      write(key);
      write(value);
      close();
    }
    close();
  }

 private:
  void writeBoolean(bool value);
  void writeBasic(char type, const void* value);
  void open(char container, const std::string& contents);
  void close();

  sd_bus_message* message_;
};

/// A value together with its type.
class BusVariant {
 public:
  template <class T>
  requires(!std::is_same_v<T, BusVariant>) explicit BusVariant(T value)
      : type_(busType<T>()), write_([value = std::move(value)](BusWriter& writer) { writer.write(value); }) {}

  const std::string& type() const { return type_; }
  void writeTo(BusWriter& writer) const { write_(writer); }

 private:
  std::string type_;
  std::function<void(BusWriter&)> write_;
};

}  // namespace roomlattice::platform::linux
