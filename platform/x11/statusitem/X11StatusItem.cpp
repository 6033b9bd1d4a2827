#include "platform/x11/statusitem/X11StatusItem.h"

#include <QCursor>
#include <QMetaObject>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {

using linux::ExportedItem;

namespace {

/// The form in which another program shows an item of the menu.
struct Exporting {
  ExportedItem operator()(const ViewItem& row) const {
    return {.title = row.description,
            .mark = linux::MenuMark{linux::MenuMark::Kind::OneOfSeveral, row.state == RowState::Chosen}};
  }
  ExportedItem operator()(const CommandItem& command) const { return {.title = command.title}; }
  ExportedItem operator()(const SeparatorItem&) const { return {}; }
};

struct Choosing {
  void operator()(const ViewItem& row) const { row.view->mouseUp({}); }
  void operator()(const CommandItem& command) const { command.action(); }
  void operator()(const SeparatorItem&) const {}
};

}  // namespace

X11StatusItem::X11StatusItem(const StatusItemEnvironment& environment, const StatusItemLength& length)
    : environment_(environment), length_(length) {
  changesElsewhere_ = environment_.defaultCenter.observe(notification::defaultsDidChangeElsewhere, [this] {
    placement_.settingsChanged();
    settingsChanged();
  });
  place();
}

void X11StatusItem::setLength(const StatusItemLength& length) {
  if (length == length_) {
    return;
  }
  length_ = length;
  if (floating_) {
    floating_->setContent(content_, length_);
  }
}

void X11StatusItem::setMenu(Menu* menu) {
  closeMenu();
  menu_ = menu;
}

void X11StatusItem::openMenu() {
  openMenuAt(floating_ ? floating_->anchor() : QRect(QCursor::pos(), QSize(1, 1)));
}

void X11StatusItem::setContent(const StatusButtonContent& content) {
  if (content == content_) {
    return;
  }
  content_ = content;
  if (floating_) {
    floating_->setContent(content_, length_);
  }
  if (panel_) {
    panel_->setContent(content_);
  }
}

void X11StatusItem::place() {
  if (!placement_.isFloating()) {
    floating_.reset();
  } else if (!floating_) {
    floating_.emplace(environment_, settings_, handlers());
    floating_->setContent(content_, length_);
  }
  if (!placement_.isInPanel()) {
    panel_.reset();
  } else if (!panel_ || !panel_->suits(tray_.traits())) {
    panel_.emplace(environment_.connection, environment_.sessionBus, tray_, handlers(),
                   [this] { return exportedItems(); });
    panel_->setContent(content_);
  }
}

void X11StatusItem::settingsChanged() {
  if (floating_) {
    floating_->settingsChanged();
  }
  if (panel_) {
    panel_->menuChanged();
  }
}

std::vector<ExportedItem> X11StatusItem::exportedItems() {
  std::vector<ExportedItem> options = options_.items();
  for (ExportedItem& option : options) {
    // It may end what the menu was opened from.
    if (option.activate) {
      option.activate = later(std::move(option.activate));
    }
  }
  if (!tray_.traits().opensExportedMenus || menu_ == nullptr) {
    return options;
  }
  // The rows of an open menu are in use, and up to date.
  if (session_ == nullptr) {
    menu_->needsUpdate(*menu_);
  }
  std::vector<ExportedItem> items;
  for (std::size_t index = 0; index < menu_->items.size(); ++index) {
    items.push_back(std::visit(Exporting(), menu_->items[index]));
    items.back().activate = later([this, index] { choose(index); });
  }
  items.emplace_back();
  items.push_back({.title = "Status Item", .children = std::move(options)});
  return items;
}

void X11StatusItem::choose(std::size_t index) {
  // The menu may have been brought up to date since it was exported.
  if (menu_ != nullptr && index < menu_->items.size()) {
    std::visit(Choosing(), menu_->items[index]);
  }
}

std::function<void()> X11StatusItem::later(std::function<void()> action) {
  return [this, action = std::move(action)] { QMetaObject::invokeMethod(&context_, action, Qt::QueuedConnection); };
}

ItemHandlers X11StatusItem::handlers() {
  // A click in a panel of Wayland does not close the menu by itself.
  return {.openMenu = [this](const QRect& anchor) { session_ == nullptr ? openMenuAt(anchor) : closeMenu(); },
          .openOptions = [this](QPoint pointer) { openOptions(pointer); },
          .step = [this](Direction direction) { environment_.desktops.step(direction); }};
}

void X11StatusItem::openMenuAt(const QRect& anchor) {
  if (menu_ != nullptr && session_ == nullptr) {
    keyboard_.emplace(environment_.connection, anchor.center(), [this] { closeMenu(); });
    session_ = std::make_unique<MenuSession>(*menu_, anchor, environment_.appearance.accentColor(), context_,
                                             [this] { closeMenu(); });
  }
}

void X11StatusItem::closeMenu() {
  session_.reset();
  keyboard_.reset();
}

void X11StatusItem::openOptions(QPoint pointer) {
  optionsKeyboard_.emplace(environment_.connection, pointer, [this] { options_.close(); });
  options_.open(pointer, [this] { optionsKeyboard_.reset(); });
}

}  // namespace roomlattice::platform::x11
