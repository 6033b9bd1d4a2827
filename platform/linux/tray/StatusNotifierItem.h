#pragma once

#include "platform/linux/bus/BusName.h"
#include "platform/linux/bus/BusObject.h"
#include "platform/linux/tray/TrayWatch.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// A picture as the protocol has it: rows from top to bottom, each pixel the bytes alpha, red, green and blue, the
/// colours not multiplied by the alpha.
struct TrayPicture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint8_t> pixels;
};

/// What the item tells those who look at it.
struct TrayTexts {
  std::string title;  // also its tool tip
  std::string label;  // to be shown beside the picture; empty for none

  bool operator==(const TrayTexts&) const = default;
};

enum class ScrollStep { Forward, Back };

/// What the host asks of the item; none is empty. Places are in the host's coordinates, and may be wrong.
struct TrayHandlers {
  /// The picture in all sizes. Asked for whenever somebody wants to see it.
  std::function<std::vector<TrayPicture>()> pictures;
  std::function<void(std::int32_t x, std::int32_t y)> activate;
  std::function<void(std::int32_t x, std::int32_t y)> openContextMenu;
  /// One step of the wheel, down and right or up and left.
  std::function<void(ScrollStep step)> scroll;
};

/// An item in the panels of the desktop, by the StatusNotifierItem protocol (freedesktop.org, with the label that
/// Ayatana added to it). It registers with every watcher that comes, and leaves the panels with this object.
class StatusNotifierItem {
 public:
  /// `menu` is the path of a menu that is exported for hosts that want one (com.canonical.dbusmenu). The others must
  /// outlive the item.
  StatusNotifierItem(MessageBus& bus, TrayWatch& watch, TrayHandlers handlers, const std::optional<ObjectPath>& menu);

  void setTexts(const TrayTexts& texts);

  /// To be called when `pictures` gives others.
  void picturesChanged();

 private:
  BusInterface interface(const std::optional<ObjectPath>& menu);
  void scrollBy(std::int32_t amount);
  std::vector<BusMethod> methods();
  std::vector<BusProperty> properties() const;

  const TrayTraits traits_;
  TrayHandlers handlers_;
  TrayTexts texts_;
  // What has been scrolled and makes no whole step yet, forward.
  std::int32_t scrolled_ = 0;
  BusObject object_;
  BusName name_;
  Registration watcherChanges_;
};

}  // namespace roomlattice::platform::linux
