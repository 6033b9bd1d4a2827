#include "platform/linux/appearance/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// The bus may have to start the portal first, and nobody waits for it.
constexpr std::chrono::seconds answerLimit{25};

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString accentColorKey = QStringLiteral("accent-color");

/// The portal's Read puts a variant into the variant of the answer.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>() && value.metaType() == QMetaType::fromType<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}

std::optional<Appearance> parsePreference(const QVariant& value) {
  constexpr uint prefersDark = 1;
  constexpr uint prefersLight = 2;
  if (value.metaType() != QMetaType::fromType<uint>()) {
    return std::nullopt;
  }
  switch (value.toUInt()) {
    case prefersDark:
      return Appearance::Dark;
    case prefersLight:
      return Appearance::Light;
    default:
      return std::nullopt;
  }
}

bool isComponent(double value) {
  return value >= 0.0 && value <= 1.0;
}

/// Three sRGB components; values beyond 0 to 1 mean that no colour is set.
std::optional<Color> parseColor(const QVariant& value) {
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QStringLiteral("(ddd)")) {
    return std::nullopt;
  }
  Color color;
  argument.beginStructure();
  argument >> color.red >> color.green >> color.blue;
  argument.endStructure();
  return isComponent(color.red) && isComponent(color.green) && isComponent(color.blue) ? std::optional(color)
                                                                                       : std::nullopt;
}

}  // namespace

PortalAppearance::PortalAppearance(MessageBus& bus, std::function<void()> changed)
    : bus_(bus), changed_(std::move(changed)) {
  connected_ = bus.observeConnected([this] { connected(); });
  connected();
}

void PortalAppearance::connected() {
  if (!signals_.empty() || !bus_.connection()) {
    return;
  }
  signals_.push_back(bus_.observeSignal(
      path, interface, QStringLiteral("SettingChanged"),
      [this](const QDBusMessage& message) {
        take(message.arguments().value(1).toString(), message.arguments().value(2));
      },
      appearance));
  signals_.push_back(bus_.observeOwner(service, [this](bool hasOwner) {
    if (hasOwner) {
      ask();
    } else {
      forget();
    }
  }));
  signals_.push_back(bus_.observeLoss([this] { forget(); }));
  ask();
}

void PortalAppearance::ask() {
  calls_.clear();
  ask(colorScheme);
  ask(accentColorKey);
}

void PortalAppearance::ask(const QString& key) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  message << appearance << key;
  calls_.push_back(bus_.call(message, answerLimit, [this, key](const QDBusMessage& answer) {
    if (answer.type() == QDBusMessage::ReplyMessage) {
      take(key, answer.arguments().value(0));
    }
  }));
}

void PortalAppearance::take(const QString& key, const QVariant& value) {
  if (key == colorScheme) {
    const std::optional<Appearance> preference = parsePreference(unwrapped(value));
    if (std::exchange(preference_, preference) != preference) {
      changed_();
    }
  } else if (key == accentColorKey) {
    const std::optional<Color> color = parseColor(unwrapped(value));
    if (std::exchange(accentColor_, color) != color) {
      changed_();
    }
  }
}

void PortalAppearance::forget() {
  const bool knew = preference_ || accentColor_;
  preference_.reset();
  accentColor_.reset();
  if (knew) {
    changed_();
  }
}

}  // namespace roomlattice::platform::linux
