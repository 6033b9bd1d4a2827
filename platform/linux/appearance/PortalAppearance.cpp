#include "platform/linux/appearance/PortalAppearance.h"

#include <tuple>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* objectPath = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* colorScheme = "color-scheme";
constexpr const char* accentColorKey = "accent-color";

std::optional<Appearance> preferenceOf(std::optional<std::uint32_t> number) {
  constexpr std::uint32_t prefersDark = 1;
  constexpr std::uint32_t prefersLight = 2;
  if (number == prefersDark) {
    return Appearance::Dark;
  }
  return number == prefersLight ? std::optional(Appearance::Light) : std::nullopt;
}

bool isComponent(double value) {
  return value >= 0.0 && value <= 1.0;
}

/// Three sRGB components; values beyond 0 to 1 mean that no colour is set.
std::optional<Color> colorOf(const std::optional<std::tuple<double, double, double>>& components) {
  if (!components) {
    return std::nullopt;
  }
  const auto [red, green, blue] = *components;
  return isComponent(red) && isComponent(green) && isComponent(blue) ? std::optional(Color{red, green, blue})
                                                                     : std::nullopt;
}

}  // namespace

PortalAppearance::PortalAppearance(MessageBus& bus, std::function<void()> changed)
    : changed_(std::move(changed)), service_(bus, service, [this](bool hasOwner) { hasOwner ? ask() : forget(); }) {
  signal_ = service_.observeSignal(
      {.path = objectPath, .interface = interface, .name = "SettingChanged", .firstArgument = appearance},
      [this](const BusMessage& message) { take(message.argument<std::string>(1).value_or(""), message, 2); });
  loss_ = bus.observeLoss([this] { forget(); });
  ask();
}

void PortalAppearance::ask() {
  calls_.clear();
  ask(colorScheme);
  ask(accentColorKey);
}

void PortalAppearance::ask(const std::string& key) {
  const BusCall read{.path = objectPath, .interface = interface, .method = "Read", .arguments = {appearance, key}};
  calls_.push_back(service_.call(read, usualAnswerLimit, [this, key](const BusMessage& answer) {
    if (!answer.isError()) {
      take(key, answer, 0);
    }
  }));
}

void PortalAppearance::take(const std::string& key, const BusMessage& message, std::size_t argument) {
  if (key == colorScheme) {
    const std::optional<Appearance> preference = preferenceOf(message.argument<std::uint32_t>(argument));
    if (std::exchange(preference_, preference) != preference) {
      changed_();
    }
  } else if (key == accentColorKey) {
    const std::optional<Color> color = colorOf(message.argument<std::tuple<double, double, double>>(argument));
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
