#include "platform/x11/statusitem/ItemOptions.h"

#include "platform/linux/system/Executable.h"
#include "platform/x11/drawing/QtValues.h"

#include <QAction>
#include <utility>

namespace roomlattice::platform::x11 {

using linux::ExportedItem;
using linux::MenuMark;

ItemOptions::ItemOptions(ItemPlacement& placement, ItemSettings& settings, X11DesktopNames& desktopNames,
                         std::function<void()> settingsChanged)
    : placement_(placement),
      settings_(settings),
      desktopNames_(desktopNames),
      settingsChanged_(std::move(settingsChanged)) {}

std::vector<ExportedItem> ItemOptions::items() {
  std::vector<ExportedItem> items = {placeItem("In the Panel", ItemPlace::Panel),
                                     placeItem("Floating", ItemPlace::Floating),
                                     placeItem("In the Panel and Floating", ItemPlace::Both),
                                     {},
                                     keepEdgeFreeItem(),
                                     shareNamesItem()};
  if (const auto entry = linux::Autostart::standardPath()) {
    items.push_back(autostartItem(linux::Autostart(*entry)));
  }
  return items;
}

void ItemOptions::open(QPoint pointer, const std::function<void()>& closed) {
  popup_ = std::make_unique<QMenu>();
  // The click that closes the menu is not to do anything else.
  popup_->setAttribute(Qt::WA_NoMouseReplay);
  for (ExportedItem& item : items()) {
    if (item.title.empty()) {
      popup_->addSeparator();
      continue;
    }
    QAction* action = popup_->addAction(withoutShortcuts(toQt(item.title)));
    action->setCheckable(item.mark.has_value());
    action->setChecked(item.mark && item.mark->isOn);
    // The choice may end the item that the menu was opened from.
    QObject::connect(action, &QAction::triggered, popup_.get(), item.activate, Qt::QueuedConnection);
  }
  QObject::connect(popup_.get(), &QMenu::aboutToHide, popup_.get(), closed, Qt::QueuedConnection);
  popup_->popup(pointer);
}

void ItemOptions::close() {
  if (popup_ != nullptr) {
    popup_->close();
  }
}

ExportedItem ItemOptions::placeItem(const char* title, ItemPlace place) {
  return {.title = title,
          .mark = MenuMark{MenuMark::Kind::OneOfSeveral, placement_.choice() == place},
          .activate = [this, place] { placement_.choose(place); }};
}

ExportedItem ItemOptions::keepEdgeFreeItem() {
  const bool isOn = settings_.edgeUse() == EdgeUse::KeptFree;
  return {.title = "Keep the Edge Free", .mark = MenuMark{MenuMark::Kind::Switch, isOn}, .activate = [this, isOn] {
            settings_.setEdgeUse(isOn ? EdgeUse::Shared : EdgeUse::KeptFree);
            settingsChanged_();
          }};
}

ExportedItem ItemOptions::shareNamesItem() {
  using Sharing = X11DesktopNames::Sharing;
  const bool isOn = desktopNames_.sharing() == Sharing::On;
  return {.title = "Share Names with the Window Manager",
          .mark = MenuMark{MenuMark::Kind::Switch, isOn},
          .activate = [this, isOn] {
            desktopNames_.setSharing(isOn ? Sharing::Off : Sharing::On);
            settingsChanged_();
          }};
}

ExportedItem ItemOptions::autostartItem(const linux::Autostart& autostart) {
  using State = linux::Autostart::State;
  const bool isOn = autostart.state() == State::On;
  return {.title = "Start with the Session",
          .mark = MenuMark{MenuMark::Kind::Switch, isOn},
          .activate = [this, autostart, isOn] {
            autostart.set(isOn ? State::Off : State::On, linux::pathOfExecutable());
            settingsChanged_();
          }};
}

}  // namespace roomlattice::platform::x11
