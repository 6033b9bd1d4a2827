#pragma once

#include "platform/Registration.h"
#include "platform/linux/bus/BusMessage.h"
#include "platform/linux/bus/BusPointer.h"
#include "platform/linux/system/OneShotTimer.h"
#include "support/Listeners.h"

#include <QSocketNotifier>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// A method to call, with its arguments. Texts are sent as they are sendable.
struct BusCall {
  enum class Activation {
    /// The bus starts the service where nobody offers it yet.
    Allowed,
    Never,
  };

  std::string service;
  std::string path;
  std::string interface;
  std::string method;
  std::vector<std::string> arguments;
  /// A text that follows them in a variant.
  std::optional<std::string> variant;
  Activation activation = Activation::Allowed;
};

/// The bus itself, as a service of its own.
inline constexpr const char* busName = "org.freedesktop.DBus";
inline constexpr const char* busPath = "/org/freedesktop/DBus";

/// What D-Bus libraries give a method that nobody expects to take long.
inline constexpr std::chrono::seconds usualAnswerLimit{25};

/// Which signals to hear.
struct BusSignal {
  std::string sender;
  std::string path;
  std::string interface;
  std::string name;
  /// What the first argument has to be; any, where it is empty.
  std::string firstArgument;
  /// The name on the bus that the first argument has to be or to be within, as org.kde.KWin is within org.kde; any,
  /// where it is empty.
  std::string firstArgumentWithin;
};

/// A connection to one of the desktop's message buses (D-Bus), which is never waited for longer than the caller wants.
/// There may be none, and it may break at any time; nothing is heard from it then. What is asked for while it is still
/// being made waits for it.
class MessageBus {
 public:
  enum class Kind { Session, System };
  using Handler = std::function<void(const BusMessage&)>;

  /// Begins to connect. Needs the Qt application, and must end before it.
  explicit MessageBus(Kind kind);

  /// Waits until the connection stands or there is none, but not beyond `limit`. Gives whether it stands.
  bool waitUntilConnected(std::chrono::milliseconds limit);

  bool isConnected() const;

  /// Calls `handler` from the event loop whenever the signal comes.
  Registration observeSignal(const BusSignal& signal, Handler handler);

  /// Calls `handler` from the event loop when the connection breaks.
  Registration observeLoss(std::function<void()> handler);

  /// Calls a method and hands the answer, an error where there was none within `limit`, to `handler` from the event
  /// loop. Without a bus nothing happens.
  Registration call(const BusCall& call, std::chrono::milliseconds limit, Handler handler);

  /// Calls a method and waits for the answer, but not beyond `limit`. Nothing where there was none, or an error.
  std::optional<BusMessage> callAndWait(const BusCall& call, std::chrono::milliseconds limit);

  /// Calls a method whose answer is of no interest.
  void send(const BusCall& call);

  /// The library's own connection, for what is offered on the bus; null where there is no bus. What has been queued on
  /// it by itself goes out after `listen`.
  sd_bus* raw() const { return bus_.get(); }
  void listen();

 private:
  void process();
  bool processOne();

  BusPointer bus_;
  Listeners<> lossListeners_;
  bool lossReported_ = false;
  QSocketNotifier readable_{QSocketNotifier::Read};
  QSocketNotifier writable_{QSocketNotifier::Write};
  // For what is due without anything coming: answers that did not come, and messages that were taken in already.
  OneShotTimer due_{[this] { process(); }};
};

}  // namespace roomlattice::platform::linux
