#pragma once

#include "platform/simulated/MenuSession.h"

#include <memory>
#include <vector>

namespace roomlattice::platform::simulated {

class SimulatedStatusItem;

/// The status items of the program and the one menu that may be open.
class StatusBar {
 public:
  const std::vector<SimulatedStatusItem*>& items() const { return items_; }

  /// The open menu, or null. Whoever brings it input holds it meanwhile: it may close itself.
  std::shared_ptr<MenuSession> menu();

  /// Opens the item's menu below it, or closes it if it is the one that is open. Nothing happens without a menu or a
  /// button to click.
  void click(SimulatedStatusItem& item);

  // For the items themselves.
  void add(SimulatedStatusItem& item) { items_.push_back(&item); }
  void remove(SimulatedStatusItem& item);
  void closeMenuOf(const SimulatedStatusItem& item);

 private:
  std::vector<SimulatedStatusItem*> items_;
  std::shared_ptr<MenuSession> session_;
  const SimulatedStatusItem* menuOwner_ = nullptr;
};

}  // namespace roomlattice::platform::simulated
