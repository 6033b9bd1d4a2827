#pragma once

#include "platform/linux/bus/BusMessage.h"
#include "platform/linux/bus/BusWriter.h"
#include "platform/linux/bus/MessageBus.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <systemd/sd-bus.h>
#include <vector>

namespace roomlattice::platform::linux {

/// Why a call is refused.
struct BusError {
  std::string name;  // such as "org.freedesktop.DBus.Error.InvalidArgs"
  std::string text;  // for people
};

/// A method that others may call. Types are written as D-Bus writes them, one after the other.
struct BusMethod {
  /// The call's arguments are of the types promised, and can be read. What is written to `answer` has to be of those
  /// promised, too.
  using Run = std::function<std::optional<BusError>(const BusMessage& call, BusWriter& answer)>;

  std::string name;
  std::string argumentTypes;
  std::string resultTypes;
  Run run;
  /// Of the arguments and then the results, as introspection gives them.
  std::vector<std::string> names = {};
};

/// A property that others may read.
struct BusProperty {
  /// How others learn that the property has another value.
  enum class Changes { ToldWithValue, ToldWithoutValue, Never };

  std::string name;
  std::string type;
  std::function<void(BusWriter& value)> read;
  Changes changes = Changes::ToldWithValue;
};

/// A signal that the object may send.
struct BusSignalType {
  std::string name;
  std::string argumentTypes;
  std::vector<std::string> names = {};
};

/// A property of a type that BusTypeOf knows, read by a function without arguments.
template <class Read>
BusProperty busProperty(std::string name, Read read) {
  using T = std::decay_t<decltype(read())>;
  return {std::move(name), busType<T>(), [read = std::move(read)](BusWriter& value) { value.write(read()); }};
}

struct BusInterface {
  std::string name;
  std::vector<BusMethod> methods;
  std::vector<BusProperty> properties;
  std::vector<BusSignalType> signalTypes;
};

/// An object of this program that others find on a message bus as long as it lives, with one interface; for several
/// interfaces there are several on the same path. The library answers introspection and the reading of properties.
/// Without a bus it is an object that nobody calls. Methods run from the event loop, and may not end the object.
class BusObject {
 public:
  BusObject(MessageBus& bus, std::string path, BusInterface interface);
  ~BusObject();
  BusObject(const BusObject&) = delete;
  BusObject& operator=(const BusObject&) = delete;

  /// Sends a signal with the arguments that `write` writes.
  void emit(
      const std::string& signal, const std::function<void(BusWriter&)>& write = [](BusWriter&) {});

  /// Tells everybody by org.freedesktop.DBus.Properties that these have new values.
  void emitPropertiesChanged(const std::vector<std::string>& names);

 private:
  const char* kept(const std::vector<std::string>& names);

  static int call(sd_bus_message* call, void* object, sd_bus_error* error);
  static int readProperty(sd_bus* bus, const char* path, const char* interface, const char* property,
                          sd_bus_message* value, void* object, sd_bus_error* error);

  MessageBus& bus_;
  std::string path_;
  BusInterface interface_;
  // What the table points to; its elements stay where they are.
  std::deque<std::string> names_;
  std::vector<sd_bus_vtable> table_;
  sd_bus_slot* slot_ = nullptr;
};

}  // namespace roomlattice::platform::linux
