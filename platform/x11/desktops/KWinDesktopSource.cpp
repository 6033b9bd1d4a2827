#include "platform/x11/desktops/KWinDesktopSource.h"

#include "platform/x11/desktops/StableHash.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QVariantMap>
#include <algorithm>
#include <thread>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds answerLimit = 2s;
// A window manager that replaces another one, or itself, is on the bus again within less.
constexpr std::chrono::milliseconds patience = 3s;
constexpr std::size_t maximumCount = 1000;

const QString service = QStringLiteral("org.kde.KWin");
const QString path = QStringLiteral("/VirtualDesktopManager");
const QString interface = QStringLiteral("org.kde.KWin.VirtualDesktopManager");

QDBusMessage propertiesMethod(const QString& method) {
  QDBusMessage message =
      QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Properties"), method);
  message.setAutoStartService(false);
  return message;
}

QDBusMessage getAllMessage() {
  QDBusMessage message = propertiesMethod(QStringLiteral("GetAll"));
  message << interface;
  return message;
}

QDBusMessage setCurrentMessage(const std::string& identifier) {
  QDBusMessage message = propertiesMethod(QStringLiteral("Set"));
  message << interface << QStringLiteral("current")
          << QVariant::fromValue(QDBusVariant(QString::fromStdString(identifier)));
  return message;
}

Desktop desktopWithIdentifier(const QString& identifier) {
  std::string uuid = identifier.toStdString();
  const SpaceID id = stableHash(uuid);
  return {id, std::move(uuid)};
}

/// An array of structures of position, identifier and name.
std::vector<Desktop> parseDesktops(const QVariant& value) {
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QStringLiteral("a(uss)")) {
    return {};
  }
  std::vector<std::pair<uint, Desktop>> placed;
  argument.beginArray();
  while (!argument.atEnd() && placed.size() < maximumCount) {
    uint position = 0;
    QString identifier;
    QString name;
    argument.beginStructure();
    argument >> position >> identifier >> name;
    argument.endStructure();
    if (!identifier.isEmpty()) {
      placed.emplace_back(position, desktopWithIdentifier(identifier));
    }
  }
  argument.endArray();
  std::ranges::stable_sort(placed, {}, &std::pair<uint, Desktop>::first);
  std::vector<Desktop> desktops;
  desktops.reserve(placed.size());
  for (auto& [position, desktop] : placed) {
    desktops.push_back(std::move(desktop));
  }
  return desktops;
}

std::optional<std::size_t> placeOf(const std::vector<Desktop>& desktops, const QString& identifier) {
  const auto found = std::ranges::find(desktops, identifier.toStdString(), &Desktop::uuid);
  return found == desktops.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(std::distance(desktops.begin(), found)));
}

/// Nothing when the answer is an error or tells of no desktops.
std::optional<DesktopList> parseAnswer(const QDBusMessage& answer) {
  if (answer.type() != QDBusMessage::ReplyMessage) {
    return std::nullopt;
  }
  const QVariantMap properties = qdbus_cast<QVariantMap>(answer.arguments().value(0));
  DesktopList list{.desktops = parseDesktops(properties.value(QStringLiteral("desktops")))};
  list.current = placeOf(list.desktops, properties.value(QStringLiteral("current")).toString());
  return list.desktops.empty() ? std::nullopt : std::optional(std::move(list));
}

}  // namespace

KWinDesktopSource::KWinDesktopSource(X11Connection& connection, linux::MessageBus& bus, std::function<void()> changed)
    : bus_(bus), changed_(std::move(changed)), ewmh_(connection, DesktopIdentity::Position, [this] {
        if (state_ == State::Unheard) {
          changed_();
        }
      }) {
  patience_.setSingleShot(true);
  patience_.setInterval(patience);
  QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { giveUpWaiting(); });
  patience_.start();
  connected_ = bus.observeConnected([this] {
    listen();
    request();
  });
  listen();
  request();
}

std::optional<DesktopList> KWinDesktopSource::read() {
  switch (state_) {
    case State::Heard:
      return list_;
    case State::Unheard:
      return ewmh_.read();
    case State::Waiting:
      break;
  }
  return std::nullopt;
}

void KWinDesktopSource::activate(std::size_t index) {
  const std::optional<QDBusConnection> bus = bus_.connection();
  if (state_ == State::Heard && bus && index < list_.desktops.size()) {
    bus->send(setCurrentMessage(list_.desktops[index].uuid));
  } else {
    ewmh_.activate(index);
  }
}

void KWinDesktopSource::waitForAnswer(std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  const auto left = [end] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
  };
  bus_.waitUntilDecided(limit);
  listen();
  while (state_ == State::Waiting && left() > 0ms) {
    const std::optional<QDBusConnection> bus = bus_.connection();
    if (!bus) {
      break;
    }
    answered(bus->call(getAllMessage(), QDBus::Block, static_cast<int>(left().count())));
    if (state_ == State::Waiting) {
      // It manages windows already and is about to come to the bus.
      std::this_thread::sleep_for(10ms);
    }
  }
  giveUpWaiting();
}

void KWinDesktopSource::listen() {
  if (!signals_.empty() || !bus_.connection()) {
    return;
  }
  for (const char* signal :
       {"desktopCreated", "desktopRemoved", "desktopDataChanged", "desktopMoved", "countChanged"}) {
    signals_.push_back(
        bus_.observeSignal(path, interface, QString::fromLatin1(signal), [this](const QDBusMessage&) { request(); }));
  }
  signals_.push_back(bus_.observeSignal(
      path, interface, QStringLiteral("currentChanged"),
      [this](const QDBusMessage& message) { currentChanged(message.arguments().value(0).toString()); }));
  signals_.push_back(bus_.observeOwner(service, [this](bool hasOwner) { ownerChanged(hasOwner); }));
  signals_.push_back(bus_.observeLoss([this] { loseTouch(); }));
}

void KWinDesktopSource::request() {
  if (!bus_.connection()) {
    return;
  }
  if (requesting_) {
    // The answer under way may be older than what this request is about.
    requestAgain_ = true;
    return;
  }
  requesting_ = true;
  pendingCall_ = bus_.call(getAllMessage(), answerLimit, [this](const QDBusMessage& answer) {
    requesting_ = false;
    if (std::exchange(requestAgain_, false)) {
      request();
    }
    answered(answer);
  });
}

void KWinDesktopSource::answered(const QDBusMessage& answer) {
  if (std::optional<DesktopList> list = parseAnswer(answer)) {
    list_ = std::move(*list);
    state_ = State::Heard;
    patience_.stop();
    changed_();
  }
}

void KWinDesktopSource::currentChanged(const QString& identifier) {
  const std::optional<std::size_t> place = placeOf(list_.desktops, identifier);
  if (state_ != State::Heard || !place) {
    request();
    return;
  }
  list_.current = place;
  changed_();
}

void KWinDesktopSource::ownerChanged(bool hasOwner) {
  if (hasOwner) {
    request();
  } else if (state_ == State::Heard) {
    state_ = State::Waiting;
    patience_.start();
  }
}

void KWinDesktopSource::loseTouch() {
  pendingCall_.cancel();
  requesting_ = false;
  state_ = State::Unheard;
  patience_.stop();
  changed_();
}

void KWinDesktopSource::giveUpWaiting() {
  if (state_ == State::Waiting) {
    state_ = State::Unheard;
    patience_.stop();
    changed_();
  }
}

}  // namespace roomlattice::platform::x11
