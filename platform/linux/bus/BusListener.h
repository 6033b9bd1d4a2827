#pragma once

#include <QDBusMessage>
#include <QObject>
#include <functional>
#include <memory>
#include <utility>

namespace roomlattice::platform::linux {

/// Something Qt can deliver a bus signal to: it takes slots of compiled classes only.
class BusListener final : public QObject {
  Q_OBJECT

 public:
  using Handler = std::function<void(const QDBusMessage&)>;

  BusListener(Handler handler, QObject* parent)
      : QObject(parent), handler_(std::make_shared<Handler>(std::move(handler))) {}

  /// Ends the delivery at once, and the listener later: it may be delivering.
  void end() {
    handler_.reset();
    deleteLater();
  }

 public Q_SLOTS:
  void receive(const QDBusMessage& message) {
    if (const std::shared_ptr<Handler> handler = handler_) {
      (*handler)(message);
    }
  }

 private:
  std::shared_ptr<Handler> handler_;
};

}  // namespace roomlattice::platform::linux
