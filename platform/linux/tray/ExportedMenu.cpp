#include "platform/linux/tray/ExportedMenu.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <tuple>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Properties = std::map<std::string, BusVariant>;
using Layout = std::tuple<std::int32_t, Properties, std::vector<BusVariant>>;
using Event = std::tuple<std::int32_t, std::string, AnyValue, std::uint32_t>;

BusVariant text(std::string value) {
  return BusVariant(std::move(value));
}

/// An underscore marks the letter after it as the item's key there.
std::string withoutMnemonics(const std::string& title) {
  std::string label;
  for (const char character : title) {
    label.append(character == '_' ? 2 : 1, character);
  }
  return label;
}

Properties propertiesOf(const ExportedItem& item) {
  Properties properties;
  if (!item.children.empty()) {
    properties.emplace("children-display", text("submenu"));
  }
  if (item.title.empty() && item.children.empty()) {
    properties.emplace("type", text("separator"));
  } else {
    properties.emplace("label", text(withoutMnemonics(item.title)));
  }
  if (item.mark) {
    properties.emplace("toggle-type", text(item.mark->kind == MenuMark::Kind::Switch ? "checkmark" : "radio"));
    properties.emplace("toggle-state", BusVariant(std::int32_t{item.mark->isOn ? 1 : 0}));
  }
  return properties;
}

void list(const ExportedItem& item, std::vector<const ExportedItem*>& all) {
  all.push_back(&item);
  for (const ExportedItem& child : item.children) {
    list(child, all);
  }
}

std::int32_t sizeOf(const ExportedItem& item) {
  std::int32_t size = 1;
  for (const ExportedItem& child : item.children) {
    size += sizeOf(child);
  }
  return size;
}

/// Identifiers are counted as `list` does, from `firstChild` on.
Layout layoutOf(const ExportedItem& item, std::int32_t identifier, std::int32_t firstChild) {
  std::vector<BusVariant> children;
  std::int32_t next = firstChild;
  for (const ExportedItem& child : item.children) {
    children.emplace_back(layoutOf(child, next, next + 1));
    next += sizeOf(child);
  }
  return {identifier, propertiesOf(item), std::move(children)};
}

/// Whether both lists of items look the same.
bool lookAlike(const std::vector<ExportedItem>& some, const std::vector<ExportedItem>& others) {
  return std::ranges::equal(some, others, [](const ExportedItem& one, const ExportedItem& other) {
    return one.title == other.title && one.mark == other.mark && lookAlike(one.children, other.children);
  });
}

std::vector<BusProperty> properties() {
  return {busProperty("Version", [] { return std::uint32_t{3}; }),
          busProperty("Status", [] { return std::string("normal"); }),
          busProperty("TextDirection", [] { return std::string("ltr"); }),
          busProperty("IconThemePath", [] { return std::vector<std::string>(); })};
}

}  // namespace

ExportedMenu::ExportedMenu(MessageBus& bus, std::string path, Items items)
    : items_(std::move(items)), object_(bus, std::move(path), interface()) {}

void ExportedMenu::changed() {
  // Until somebody asks, what was shown last can still be clicked.
  isUpToDate_ = false;
  ++revision_;
  object_.emit("LayoutUpdated", [this](BusWriter& writer) {
    writer.write(revision_);
    writer.write(Identifier{0});
  });
}

BusInterface ExportedMenu::interface() {
  using Result = std::optional<BusError>;
  const auto layout = [this](const BusMessage& call, BusWriter& answer) -> Result {
    return writeLayout(call.argument<Identifier>(0).value_or(-1), answer);
  };
  const auto group = [this](const BusMessage& call, BusWriter& answer) -> Result {
    writeProperties(answer, call.argument<std::vector<Identifier>>(0).value_or(std::vector<Identifier>()));
    return std::nullopt;
  };
  const auto event = [this](const BusMessage& call, BusWriter&) -> Result {
    happened(call.argument<Identifier>(0).value_or(-1), call.argument<std::string>(1).value_or(""));
    return std::nullopt;
  };
  const auto events = [this](const BusMessage& call, BusWriter& answer) -> Result {
    for (const auto& [identifier, name, data, time] :
         call.argument<std::vector<Event>>(0).value_or(std::vector<Event>())) {
      happened(identifier, name);
    }
    answer.write(std::vector<Identifier>());
    return std::nullopt;
  };
  const auto aboutToShow = [this](const BusMessage&, BusWriter& answer) -> Result {
    answer.write(refresh());
    return std::nullopt;
  };
  return {.name = "com.canonical.dbusmenu",
          .methods = {{"GetLayout", "iias", "u(ia{sv}av)", layout},
                      {"GetGroupProperties", "aias", "a(ia{sv})", group},
                      {"Event", "isvu", "", event},
                      {"EventGroup", "a(isvu)", "ai", events},
                      {"AboutToShow", "i", "b", aboutToShow}},
          .properties = properties(),
          .signalTypes = {{"LayoutUpdated", "ui"}, {"ItemsPropertiesUpdated", "a(ia{sv})a(ias)"}}};
}

bool ExportedMenu::refresh() {
  std::vector<ExportedItem> items = items_();
  const bool same = isUpToDate_ && lookAlike(items, root_.children);
  if (!same && !all_.empty()) {
    firstIdentifier_ += static_cast<Identifier>(all_.size());
    ++revision_;
  }
  root_.children = std::move(items);
  all_.clear();
  list(root_, all_);
  isUpToDate_ = true;
  return !same;
}

const ExportedItem* ExportedMenu::item(Identifier identifier) const {
  if (identifier != 0 && identifier < firstIdentifier_) {
    return nullptr;
  }
  const auto index = static_cast<std::size_t>(identifier == 0 ? 0 : identifier - firstIdentifier_ + 1);
  return index < all_.size() ? all_[index] : nullptr;
}

std::optional<BusError> ExportedMenu::writeLayout(Identifier parent, BusWriter& answer) {
  if (!isUpToDate_) {
    refresh();
  }
  const ExportedItem* found = item(parent);
  if (found == nullptr) {
    return BusError{"org.freedesktop.DBus.Error.InvalidArgs", "the menu has no such item"};
  }
  answer.write(revision_);
  answer.write(layoutOf(*found, parent, parent == 0 ? firstIdentifier_ : parent + 1));
  return std::nullopt;
}

void ExportedMenu::writeProperties(BusWriter& answer, const std::vector<Identifier>& identifiers) {
  std::vector<std::tuple<Identifier, Properties>> result;
  std::set<Identifier> told;
  for (const Identifier identifier : identifiers.empty() ? allIdentifiers() : identifiers) {
    // The question may be much shorter than the answer would be.
    if (const ExportedItem* found = item(identifier); found != nullptr && told.insert(identifier).second) {
      result.emplace_back(identifier, propertiesOf(*found));
    }
  }
  answer.write(result);
}

std::vector<ExportedMenu::Identifier> ExportedMenu::allIdentifiers() {
  if (!isUpToDate_) {
    refresh();
  }
  std::vector<Identifier> all(all_.size());
  std::iota(all.begin(), all.end(), firstIdentifier_ - 1);
  all.front() = 0;
  return all;
}

void ExportedMenu::happened(Identifier identifier, const std::string& event) {
  const ExportedItem* found = event == "clicked" ? item(identifier) : nullptr;
  if (found != nullptr && found->activate) {
    // The items may be made anew by what it does.
    const auto activate = found->activate;
    activate();
  }
}

}  // namespace roomlattice::platform::linux
