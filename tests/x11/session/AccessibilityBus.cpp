#include "tests/x11/session/AccessibilityBus.h"

#include "tests/linux/session/Wait.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace roomlattice::tests {
namespace {

constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* actions = "org.a11y.atspi.Action";
constexpr const char* properties = "org.freedesktop.DBus.Properties";

// Places in the array of states.
constexpr unsigned checked = 4;
constexpr unsigned focused = 12;

const QString connectionName = QStringLiteral("accessibility");

QDBusMessage callTo(const QString& service, const QString& path, const char* interface, const char* method) {
  return QDBusMessage::createMethodCall(service, path, QLatin1String(interface), QLatin1String(method));
}

}  // namespace

AccessibilityBus::AccessibilityBus()
    : launcher_(std::make_unique<ChildProcess>(
          std::vector<std::string>{"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"})) {
  if (!waitFor([this] {
        connect();
        return bus_.isConnected() || !launcher_->isRunning();
      }) ||
      !bus_.isConnected()) {
    throw std::runtime_error("the accessibility bus does not start: " + launcher_->errorOutput());
  }
}

AccessibilityBus::~AccessibilityBus() {
  QDBusConnection::disconnectFromBus(connectionName);
  // It takes its bus along.
  launcher_->signal(SIGTERM);
  launcher_->waitForEnd();
}

void AccessibilityBus::connect() {
  const QString sessionName = QStringLiteral("session of the accessibility bus");
  const QDBusConnection session =
      QDBusConnection::connectToBus(QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), sessionName);
  const QString service = QStringLiteral("org.a11y.Bus");
  const QString path = QStringLiteral("/org/a11y/bus");
  QDBusMessage enable = callTo(service, path, properties, "Set");
  enable << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled") << QVariant::fromValue(QDBusVariant(true));
  const QDBusMessage address = session.call(callTo(service, path, "org.a11y.Bus", "GetAddress"));
  if (session.call(enable).type() == QDBusMessage::ReplyMessage && address.type() == QDBusMessage::ReplyMessage) {
    bus_ = QDBusConnection::connectToBus(address.arguments().constFirst().toString(), connectionName);
  }
  QDBusConnection::disconnectFromBus(sessionName);
}

std::vector<AccessibilityBus::Object> AccessibilityBus::find(const std::string& role, const std::string& name) const {
  std::vector<Object> found;
  std::vector<Object> waiting{
      {QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/accessible/root")}};
  while (!waiting.empty()) {
    const Object object = waiting.back();
    waiting.pop_back();
    if (roleOf(object) == role && (name.empty() || nameOf(object) == name)) {
      found.push_back(object);
    }
    const std::vector<Object> children = childrenOf(object);
    waiting.insert(waiting.end(), children.rbegin(), children.rend());
  }
  return found;
}

std::vector<AccessibilityBus::Object> AccessibilityBus::childrenOf(const Object& object) const {
  std::vector<Object> children;
  const QVariantList answer = call(object, accessible, "GetChildren");
  if (answer.isEmpty()) {
    return children;
  }
  const auto list = answer.constFirst().value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    Object child;
    QDBusObjectPath path;
    list.beginStructure();
    list >> child.service >> path;
    list.endStructure();
    child.path = path.path();
    children.push_back(child);
  }
  list.endArray();
  return children;
}

std::string AccessibilityBus::nameOf(const Object& object) const {
  const QVariantList answer = call(object, properties, "Get", {QLatin1String(accessible), QStringLiteral("Name")});
  return answer.isEmpty() ? "" : answer.constFirst().value<QDBusVariant>().variant().toString().toStdString();
}

std::string AccessibilityBus::roleOf(const Object& object) const {
  const QVariantList answer = call(object, accessible, "GetRoleName");
  return answer.isEmpty() ? "" : answer.constFirst().toString().toStdString();
}

bool AccessibilityBus::isChecked(const Object& object) const {
  return hasState(object, checked);
}

bool AccessibilityBus::isFocused(const Object& object) const {
  return hasState(object, focused);
}

bool AccessibilityBus::hasState(const Object& object, unsigned state) const {
  const QVariantList answer = call(object, accessible, "GetState");
  const auto words = answer.isEmpty() ? QList<uint>() : qdbus_cast<QList<uint>>(answer.constFirst());
  return !words.isEmpty() && (words.constFirst() >> state & 1U) != 0;
}

void AccessibilityBus::act(const Object& object, const std::string& action) const {
  for (int index = 0; index < 8; ++index) {
    const QVariantList name = call(object, actions, "GetName", {index});
    if (!name.isEmpty() && name.constFirst().toString().toStdString() == action) {
      call(object, actions, "DoAction", {index});
      return;
    }
  }
}

QVariantList AccessibilityBus::call(const Object& object, const char* interface, const char* method,
                                    const QVariantList& arguments) const {
  QDBusMessage message = callTo(object.service, object.path, interface, method);
  message.setArguments(arguments);
  const QDBusMessage answer = bus_.call(message);
  return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

}  // namespace roomlattice::tests
