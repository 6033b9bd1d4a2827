#pragma once

#include "platform/Color.h"
#include "platform/UserInterface.h"
#include "platform/linux/bus/BusService.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// What the desktop portal (org.freedesktop.portal.Settings, namespace org.freedesktop.appearance) tells of the user's
/// choices. It is asked without waiting, so that everything is unknown at first.
class PortalAppearance {
 public:
  /// `changed` is called from the event loop when one of the answers has changed.
  PortalAppearance(MessageBus& bus, std::function<void()> changed);

  /// Nothing while the portal has not answered, and when the user prefers neither.
  std::optional<Appearance> preference() const { return preference_; }
  std::optional<Color> accentColor() const { return accentColor_; }

 private:
  void ask();
  void ask(const std::string& key);
  void take(const std::string& key, const BusMessage& message, std::size_t argument);
  void forget();

  std::function<void()> changed_;
  std::optional<Appearance> preference_;
  std::optional<Color> accentColor_;
  BusService service_;
  Registration signal_;
  Registration loss_;
  std::vector<Registration> calls_;
};

}  // namespace roomlattice::platform::linux
