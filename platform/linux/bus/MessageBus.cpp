#include "platform/linux/bus/MessageBus.h"

#include "platform/linux/bus/BusListener.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QPointer>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

std::optional<QString> variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? std::nullopt : std::optional(QString::fromLocal8Bit(value));
}

/// Where the rules of D-Bus have the bus. Left to itself the library would, when in doubt, start a session bus of
/// its own, which nobody else is on.
std::optional<QString> addressOf(MessageBus::Kind kind) {
  if (kind == MessageBus::Kind::System) {
    return variable("DBUS_SYSTEM_BUS_ADDRESS").value_or(QStringLiteral("unix:path=/var/run/dbus/system_bus_socket"));
  }
  if (auto address = variable("DBUS_SESSION_BUS_ADDRESS")) {
    return address;
  }
  const auto folder = variable("XDG_RUNTIME_DIR");
  return folder ? std::optional(QStringLiteral("unix:path=%1/bus").arg(*folder)) : std::nullopt;
}

QString uniqueConnectionName() {
  static std::atomic<int> count = 0;
  return QStringLiteral("roomlattice-%1").arg(++count);
}

}  // namespace

/// Connecting, which blocks for as long as a bus that hangs pleases, in a thread of its own.
class MessageBus::Attempt : public std::enable_shared_from_this<Attempt> {
 public:
  Attempt(QObject& context, std::function<void()> connected) : context_(&context), connected_(std::move(connected)) {}

  void start(const QString& address) {
    std::thread([self = shared_from_this(), address] { self->connect(address); }).detach();
  }

  void decideThatThereIsNone() {
    const std::scoped_lock lock(mutex_);
    decided_ = true;
  }

  void abandon() {
    const std::scoped_lock lock(mutex_);
    context_ = nullptr;
    if (connection_) {
      QDBusConnection::disconnectFromBus(name_);
    } else if (!decided_) {
      // At its own end the library would wait for this connection.
      on_exit(
          [](int status, void*) {
            std::fflush(nullptr);
            _exit(status);
          },
          nullptr);
    }
  }

  void wait(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, limit, [this] { return decided_; });
  }

  std::optional<QDBusConnection> connection() {
    const std::scoped_lock lock(mutex_);
    return connection_ && connection_->isConnected() ? connection_ : std::nullopt;
  }

 private:
  void connect(const QString& address) {
    const QDBusConnection connection = QDBusConnection::connectToBus(address, name_);
    const std::scoped_lock lock(mutex_);
    decided_ = true;
    changed_.notify_all();
    if (context_ == nullptr || !connection.isConnected()) {
      QDBusConnection::disconnectFromBus(name_);
      return;
    }
    connection_ = connection;
    QMetaObject::invokeMethod(context_, connected_, Qt::QueuedConnection);
  }

  const QString name_ = uniqueConnectionName();
  std::mutex mutex_;
  std::condition_variable changed_;
  QObject* context_;
  std::function<void()> connected_;
  bool decided_ = false;
  std::optional<QDBusConnection> connection_;
};

MessageBus::MessageBus(Kind kind)
    : attempt_(std::make_shared<Attempt>(context_, [this] { connectedListeners_.notify(); })) {
  if (const std::optional<QString> address = addressOf(kind)) {
    attempt_->start(*address);
  } else {
    attempt_->decideThatThereIsNone();
  }
}

MessageBus::~MessageBus() {
  attempt_->abandon();
}

void MessageBus::waitUntilDecided(std::chrono::milliseconds limit) {
  attempt_->wait(limit);
}

std::optional<QDBusConnection> MessageBus::connection() const {
  return attempt_->connection();
}

Registration MessageBus::observeConnected(std::function<void()> handler) {
  return connectedListeners_.add(std::move(handler));
}

Registration MessageBus::observeSignal(const QString& path, const QString& interface, const QString& signal,
                                       std::function<void(const QDBusMessage&)> handler, const QString& firstArgument) {
  std::optional<QDBusConnection> bus = connection();
  if (!bus) {
    return {};
  }
  auto* listener = new BusListener(std::move(handler), &context_);
  // No sender is named: Qt would look up its owner first, and wait for the answer.
  const QStringList arguments = firstArgument.isEmpty() ? QStringList() : QStringList(firstArgument);
  bus->connect({}, path, interface, signal, arguments, {}, listener, SLOT(receive(QDBusMessage)));
  return Registration([pointer = QPointer(listener)] {
    if (pointer != nullptr) {
      pointer->end();
    }
  });
}

Registration MessageBus::observeOwner(const QString& service, std::function<void(bool hasOwner)> handler) {
  return observeSignal(
      QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
      QStringLiteral("NameOwnerChanged"),
      [handler = std::move(handler)](const QDBusMessage& message) {
        handler(!message.arguments().value(2).toString().isEmpty());
      },
      service);
}

Registration MessageBus::observeLoss(std::function<void()> handler) {
  return observeSignal(QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                       QStringLiteral("Disconnected"),
                       [handler = std::move(handler)](const QDBusMessage&) { handler(); });
}

Registration MessageBus::call(const QDBusMessage& message, std::chrono::milliseconds limit,
                              std::function<void(const QDBusMessage& answer)> handler) {
  const std::optional<QDBusConnection> bus = connection();
  if (!bus) {
    return {};
  }
  auto* listener = new BusListener(std::move(handler), &context_);
  auto* watcher = new QDBusPendingCallWatcher(bus->asyncCall(message, static_cast<int>(limit.count())), listener);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, listener, [listener, watcher] {
    listener->receive(watcher->reply());
    listener->end();
  });
  return Registration([pointer = QPointer(listener)] {
    if (pointer != nullptr) {
      pointer->end();
    }
  });
}

}  // namespace roomlattice::platform::linux
