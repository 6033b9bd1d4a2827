#pragma once

#include "platform/Color.h"
#include "platform/UserInterface.h"
#include "platform/linux/bus/MessageBus.h"

#include <functional>
#include <optional>
#include <vector>

namespace roomlattice::platform::linux {

/// What the desktop portal (org.freedesktop.portal.Settings, namespace org.freedesktop.appearance) tells of the user's
/// choices. It is asked without waiting, so that everything is unknown at first. Main thread only.
class PortalAppearance {
 public:
  /// `changed` is called from the event loop when one of the answers has changed.
  PortalAppearance(MessageBus& bus, std::function<void()> changed);

  /// Nothing while the portal has not answered, and when the user prefers neither.
  std::optional<Appearance> preference() const { return preference_; }
  std::optional<Color> accentColor() const { return accentColor_; }

 private:
  void connected();
  void ask();
  void ask(const QString& key);
  void take(const QString& key, const QVariant& value);
  void forget();

  MessageBus& bus_;
  std::function<void()> changed_;
  std::optional<Appearance> preference_;
  std::optional<Color> accentColor_;
  Registration connected_;
  std::vector<Registration> signals_;
  std::vector<Registration> calls_;
};

}  // namespace roomlattice::platform::linux
