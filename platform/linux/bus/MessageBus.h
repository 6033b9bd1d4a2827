#pragma once

#include "platform/Registration.h"
#include "support/Listeners.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace roomlattice::platform::linux {

/// A connection to one of the desktop's message buses (D-Bus), which is never waited for longer than the caller wants.
/// There may be none, and it may break at any time; nothing is heard from it then. Main thread only.
class MessageBus {
 public:
  enum class Kind { Session, System };

  /// Begins to connect, off the main thread. Needs the Qt application, and must end before it.
  explicit MessageBus(Kind kind);
  ~MessageBus();
  MessageBus(const MessageBus&) = delete;
  MessageBus& operator=(const MessageBus&) = delete;

  /// Waits until it is known whether there is a bus, but not beyond `limit`.
  void waitUntilDecided(std::chrono::milliseconds limit);

  /// The connection; nothing before it stands, or when there is no bus or it has broken.
  std::optional<QDBusConnection> connection() const;

  /// Calls `handler` from the event loop once the connection stands. Never when it stands already.
  Registration observeConnected(std::function<void()> handler);

  /// Calls `handler` from the event loop whenever anybody sends that signal from `path`; with `firstArgument` given,
  /// only where the first argument is that text. Nothing comes without a connection.
  Registration observeSignal(const QString& path, const QString& interface, const QString& signal,
                             std::function<void(const QDBusMessage&)> handler, const QString& firstArgument = {});

  /// Calls `handler` from the event loop when `service` gets an owner, another one or none.
  Registration observeOwner(const QString& service, std::function<void(bool hasOwner)> handler);

  /// Calls `handler` from the event loop when the connection breaks.
  Registration observeLoss(std::function<void()> handler);

  /// Calls a method and hands the answer, an error where there was none within `limit`, to `handler` from the event
  /// loop. Without a connection nothing happens.
  Registration call(const QDBusMessage& message, std::chrono::milliseconds limit,
                    std::function<void(const QDBusMessage& answer)> handler);

 private:
  class Attempt;

  // Owns what listens; ends on the main thread.
  QObject context_;
  Listeners<> connectedListeners_;
  std::shared_ptr<Attempt> attempt_;
};

}  // namespace roomlattice::platform::linux
