#include "platform/simulated/StatusBar.h"

namespace roomlattice::platform::simulated {

std::shared_ptr<MenuSession> StatusBar::menu() {
  if (session_ != nullptr && !session_->isOpen()) {
    session_.reset();
  }
  return session_;
}

Registration StatusBar::add(SimulatedStatusItem& item) {
  items_.push_back(&item);
  return Registration([this, &item] {
    closeMenuOf(item);
    std::erase(items_, &item);
  });
}

void StatusBar::click(const SimulatedStatusItem& item, Menu* menu, Point topLeft) {
  const bool wasOpen = isMenuOpenOf(item);
  // Views of the last opening may go when the menu is brought up to date: nothing may show them then.
  closeMenu();
  if (!wasOpen && menu != nullptr) {
    menuOwner_ = &item;
    session_ = std::make_shared<MenuSession>(*menu, topLeft);
  }
}

void StatusBar::closeMenuOf(const SimulatedStatusItem& item) {
  if (menuOwner_ == &item) {
    closeMenu();
  }
}

void StatusBar::closeMenu() {
  if (session_ != nullptr) {
    session_->cancelMenuTracking();
  }
  session_.reset();
  menuOwner_ = nullptr;
}

}  // namespace roomlattice::platform::simulated
