#include "platform/simulated/StatusBar.h"

#include "platform/simulated/SimulatedStatusItem.h"

namespace roomlattice::platform::simulated {

std::shared_ptr<MenuSession> StatusBar::menu() {
  if (session_ != nullptr && !session_->isOpen()) {
    session_.reset();
  }
  return session_;
}

void StatusBar::click(SimulatedStatusItem& item) {
  const bool wasOpen = menu() != nullptr && menuOwner_ == &item;
  // Views of the last opening may go when the menu is brought up to date: nothing may show them then.
  session_.reset();
  if (wasOpen || item.menu() == nullptr || item.button() == nullptr) {
    return;
  }
  menuOwner_ = &item;
  session_ = std::make_shared<MenuSession>(*item.menu(), item.frame().origin);
}

void StatusBar::remove(SimulatedStatusItem& item) {
  closeMenuOf(item);
  std::erase(items_, &item);
}

void StatusBar::closeMenuOf(const SimulatedStatusItem& item) {
  if (menuOwner_ == &item) {
    session_.reset();
    menuOwner_ = nullptr;
  }
}

}  // namespace roomlattice::platform::simulated
