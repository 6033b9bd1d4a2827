#pragma once

#include "platform/linux/bus/BusObject.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::linux {

/// What an item shows of a choice of the user's.
struct MenuMark {
  enum class Kind { OneOfSeveral, Switch };

  Kind kind = Kind::OneOfSeveral;
  bool isOn = false;

  bool operator==(const MenuMark&) const = default;
};

/// An item of a menu that another program shows.
struct ExportedItem {
  /// An item without one is a separator.
  std::string title = {};
  std::optional<MenuMark> mark = {};
  std::vector<ExportedItem> children = {};  // of a submenu
  std::function<void()> activate = {};      // may be empty
};

/// A menu that the programs which show our status item show in our stead, by the protocol com.canonical.dbusmenu. They
/// ask for its items when they learn of it and whenever it is about to open.
class ExportedMenu {
 public:
  using Items = std::function<std::vector<ExportedItem>()>;

  /// `items` gives what the menu has now. An item is activated from the event loop, and must not end the menu.
  ExportedMenu(MessageBus& bus, std::string path, Items items);

  /// To be called when `items` gives others.
  void changed();

 private:
  using Identifier = std::int32_t;

  BusInterface interface();
  /// Gives whether the items look different from what they were.
  bool refresh();
  const ExportedItem* item(Identifier identifier) const;
  std::optional<BusError> writeLayout(Identifier parent, BusWriter& answer);
  /// Where none is named, of all items.
  void writeProperties(BusWriter& answer, const std::vector<Identifier>& identifiers);
  std::vector<Identifier> allIdentifiers();
  void happened(Identifier identifier, const std::string& event);

  Items items_;
  ExportedItem root_;
  // In the order in which a reader meets them, the root first.
  std::vector<const ExportedItem*> all_;
  // The root is 0. The others are counted from here on, and anew when they look different: readers keep what they know
  // of an identifier.
  Identifier firstIdentifier_ = 1;
  bool isUpToDate_ = false;
  std::uint32_t revision_ = 1;
  BusObject object_;
};

}  // namespace roomlattice::platform::linux
