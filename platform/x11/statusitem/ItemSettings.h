#pragma once

#include "platform/Defaults.h"
#include "platform/x11/statusitem/EdgePlace.h"

#include <optional>
#include <string>

namespace roomlattice::platform::x11 {

/// Where the user wants the status item.
enum class ItemPlace {
  /// In the panel; floating only while no panel takes it.
  Panel,
  Floating,
  Both,
};

/// What belongs to a floating item: whether windows may lie below it.
enum class EdgeUse { Shared, KeptFree };

/// The settings of the status item that are this backend's own. Their keys begin with "StatusItem.": a dot is in no key
/// of the program's other settings. What is stored in another form counts as not stored.
class ItemSettings {
 public:
  explicit ItemSettings(Defaults& defaults) : defaults_(defaults) {}

  /// Under "StatusItem.Place": "panel" (the default), "floating" or "both".
  ItemPlace place() const;
  void setPlace(ItemPlace place);

  /// Under "StatusItem.KeepEdgeFree", a Boolean; shared unless stored.
  EdgeUse edgeUse() const;
  void setEdgeUse(EdgeUse use);

  /// Under "StatusItem.Edge", "top" (the default), "bottom", "left" or "right", and "StatusItem.AlongEdge", a number
  /// from 0 to 1; 0.5 unless stored.
  EdgePlace floatingPlace() const;
  void setFloatingPlace(const EdgePlace& place);

 private:
  std::optional<std::string> text(const char* key) const;

  Defaults& defaults_;
};

}  // namespace roomlattice::platform::x11
