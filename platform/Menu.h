#pragma once

#include "platform/Value.h"
#include "platform/View.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform {

/// Whether a row stands for what is chosen now among the things that the rows stand for.
enum class RowState { Ordinary, Chosen };

/// A row that the program draws itself. The item owns the view; its frame's size is the row's.
struct ViewItem {
  std::unique_ptr<View> view;
  /// What the row stands for, where menus of the platform carry such a thing. Backends make nothing of it.
  Value representedObject = {};
  /// What the row says, for where it cannot be drawn; a click there is `mouseUp` of the view, which has no host then.
  std::string description = {};
  RowState state = RowState::Ordinary;
};

/// Commands that a platform may carry out itself; the action does the same for those that do not.
enum class CommandRole { Other, Quit };

/// A command with a title. The key equivalent is used with the platform's default modifier; empty for none.
struct CommandItem {
  std::string title;
  std::string keyEquivalent;
  std::function<void()> action = [] {};
  CommandRole role = CommandRole::Other;
};

struct SeparatorItem {};

using MenuItem = std::variant<ViewItem, CommandItem, SeparatorItem>;

/// A menu as data. Backends show what `items` holds when it opens, and keep nothing of it beyond.
struct Menu {
  std::vector<MenuItem> items;

  /// Called each time just before the menu opens, to bring `items` up to date. The items of the last opening live
  /// until then.
  std::function<void(Menu&)> needsUpdate = [](Menu&) {};
};

}  // namespace roomlattice::platform
