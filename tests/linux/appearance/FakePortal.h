#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <map>
#include <stdexcept>
#include <string>

namespace roomlattice::tests {

/// The settings half of a desktop portal on a session bus.
class FakePortal final : public QDBusVirtualObject {
 public:
  explicit FakePortal(const std::string& busAddress)
      : connection_(QDBusConnection::connectToBus(QString::fromStdString(busAddress), name())) {
    connection_.registerVirtualObject(path(), this);
  }
  ~FakePortal() override { QDBusConnection::disconnectFromBus(name()); }
  FakePortal(const FakePortal&) = delete;
  FakePortal& operator=(const FakePortal&) = delete;

  void appear() { connection_.registerService(service()); }
  void disappear() { connection_.unregisterService(service()); }

  /// Tells those who listen, as well.
  void set(const QString& key, const QVariant& value) {
    values_[key] = value;
    QDBusMessage signal = QDBusMessage::createSignal(path(), interface(), QStringLiteral("SettingChanged"));
    signal << space() << key << QVariant::fromValue(QDBusVariant(value));
    connection_.send(signal);
  }

  QString introspect(const QString&) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    const auto found = values_.find(message.arguments().value(1).toString());
    if (message.member() != QStringLiteral("Read") || message.arguments().value(0) != space() ||
        found == values_.end()) {
      connection.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"), {}));
      return true;
    }
    // As the portal has it: a variant in a variant.
    const QVariant inner = QVariant::fromValue(QDBusVariant(found->second));
    connection.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    return true;
  }

 private:
  static QString name() { return QStringLiteral("fake-portal"); }
  static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
  static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }
  static QString interface() { return QStringLiteral("org.freedesktop.portal.Settings"); }
  static QString space() { return QStringLiteral("org.freedesktop.appearance"); }

  QDBusConnection connection_;
  std::map<QString, QVariant> values_;
};

}  // namespace roomlattice::tests
