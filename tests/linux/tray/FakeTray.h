#pragma once

#include "tests/linux/session/Wait.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>
#include <stdexcept>
#include <string>
#include <utility>

namespace roomlattice::tests {

enum class TrayHost { Registered, None };

/// The watcher of status items on a session bus, with a host that looks at them.
class FakeTray final : public QDBusVirtualObject {
 public:
  /// Two of them need different names for their connections.
  explicit FakeTray(const std::string& busAddress, QString name = QStringLiteral("fake-tray"))
      : name_(std::move(name)), connection_(QDBusConnection::connectToBus(QString::fromStdString(busAddress), name_)) {
    connection_.registerVirtualObject(path(), this);
  }
  ~FakeTray() override { QDBusConnection::disconnectFromBus(name_); }
  FakeTray(const FakeTray&) = delete;
  FakeTray& operator=(const FakeTray&) = delete;

  /// As soon as no other one is there.
  void appear(TrayHost host) {
    host_ = host;
    items_.clear();
    connection_.interface()->registerService(service(), QDBusConnectionInterface::QueueService);
  }
  void disappear() { connection_.unregisterService(service()); }

  /// A host comes or goes, and the watcher tells nobody, as Plasma's does not. The host has a name on the bus.
  void setHostSilently(TrayHost host) {
    host_ = host;
    const QString hostName = QStringLiteral("org.kde.StatusNotifierHost-fake");
    host == TrayHost::Registered ? connection_.registerService(hostName) : connection_.unregisterService(hostName);
  }

  void setHost(TrayHost host) {
    host_ = host;
    connection_.send(QDBusMessage::createSignal(path(), service(),
                                                host == TrayHost::Registered
                                                    ? QStringLiteral("StatusNotifierHostRegistered")
                                                    : QStringLiteral("StatusNotifierHostUnregistered")));
  }

  /// The names that have been registered since it appeared.
  const QStringList& items() const { return items_; }

  /// Whether the item's name is on the bus now.
  bool isOnTheBus(const QString& item) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question << item;
    return ask(question).arguments().value(0).toBool();
  }

  /// What the first item has for a property; an invalid one where it has none.
  QVariant property(const QString& property) {
    QDBusMessage question = callTo(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.kde.StatusNotifierItem") << property;
    return ask(question).arguments().value(0).value<QDBusVariant>().variant();
  }

  /// Calls a method of the first item, and waits for the answer.
  QDBusMessage call(const QString& method, const QVariantList& arguments) {
    QDBusMessage question = callTo(QStringLiteral("org.kde.StatusNotifierItem"), method);
    question.setArguments(arguments);
    return ask(question);
  }

  QDBusMessage ask(const QDBusMessage& question) {
    const QDBusPendingReply<> answer = connection_.asyncCall(question);
    if (!waitFor([&] { return answer.isFinished(); })) {
      throw std::runtime_error("the item does not answer");
    }
    return answer.reply();
  }

  QString introspect(const QString&) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    QDBusMessage answer = message.createReply();
    if (message.member() == QStringLiteral("RegisterStatusNotifierItem")) {
      items_ << message.arguments().value(0).toString();
    } else if (message.arguments().value(1) == QStringLiteral("IsStatusNotifierHostRegistered")) {
      answer << QVariant::fromValue(QDBusVariant(host_ == TrayHost::Registered));
    } else {
      answer = message.createErrorReply(QDBusError::UnknownMethod, {});
    }
    connection.send(answer);
    return true;
  }

 private:
  static QString service() { return QStringLiteral("org.kde.StatusNotifierWatcher"); }
  static QString path() { return QStringLiteral("/StatusNotifierWatcher"); }

  QDBusMessage callTo(const QString& interface, const QString& method) {
    return QDBusMessage::createMethodCall(items_.value(0), QStringLiteral("/StatusNotifierItem"), interface, method);
  }

  QString name_;
  QDBusConnection connection_;
  TrayHost host_ = TrayHost::None;
  QStringList items_;
};

}  // namespace roomlattice::tests
