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

  // For the items themselves.
  Registration add(SimulatedStatusItem& item);
  /// Closes the open menu, and unless that is the item's, opens `menu`, where there is one.
  void click(const SimulatedStatusItem& item, Menu* menu, Point topLeft);
  bool isMenuOpenOf(const SimulatedStatusItem& item) { return menu() != nullptr && menuOwner_ == &item; }
  void closeMenuOf(const SimulatedStatusItem& item);

 private:
  void closeMenu();

  std::vector<SimulatedStatusItem*> items_;
  std::shared_ptr<MenuSession> session_;
  const SimulatedStatusItem* menuOwner_ = nullptr;
};

}  // namespace roomlattice::platform::simulated
