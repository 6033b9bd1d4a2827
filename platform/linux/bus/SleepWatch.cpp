#include "platform/linux/bus/SleepWatch.h"

#include <QVariant>

namespace roomlattice::platform::linux {

SleepWatch::SleepWatch(MessageBus& systemBus, NotificationCenter& workspaceCenter)
    : systemBus_(systemBus), workspaceCenter_(workspaceCenter) {
  connected_ = systemBus.observeConnected([this] { listen(); });
  listen();
}

void SleepWatch::listen() {
  if (signal_) {
    return;
  }
  signal_ = systemBus_.observeSignal(QStringLiteral("/org/freedesktop/login1"),
                                     QStringLiteral("org.freedesktop.login1.Manager"),
                                     QStringLiteral("PrepareForSleep"), [this](const QDBusMessage& message) {
                                       // True before the machine sleeps, false after.
                                       if (message.arguments().value(0) == QVariant(false)) {
                                         workspaceCenter_.post(notification::didWake);
                                       }
                                     });
}

}  // namespace roomlattice::platform::linux
