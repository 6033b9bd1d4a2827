#include "platform/x11/statusitem/ItemSettings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr const char* placeKey = "StatusItem.Place";
constexpr const char* keepEdgeFreeKey = "StatusItem.KeepEdgeFree";
constexpr const char* edgeKey = "StatusItem.Edge";
constexpr const char* alongEdgeKey = "StatusItem.AlongEdge";

constexpr std::array placeNames = {
    std::pair{ItemPlace::Panel, "panel"},
    std::pair{ItemPlace::Floating, "floating"},
    std::pair{ItemPlace::Both, "both"},
};

constexpr std::array edgeNames = {
    std::pair{Edge::Top, "top"},
    std::pair{Edge::Bottom, "bottom"},
    std::pair{Edge::Left, "left"},
    std::pair{Edge::Right, "right"},
};

/// The first of the names is that of the default.
template <class Names>
auto valueOf(const Names& names, const std::optional<std::string>& name) {
  const auto found = std::ranges::find_if(names, [&](const auto& entry) { return name == entry.second; });
  return found == names.end() ? names.front().first : found->first;
}

template <class Names, class T>
std::string nameOf(const Names& names, T value) {
  return std::ranges::find_if(names, [&](const auto& entry) { return value == entry.first; })->second;
}

}  // namespace

ItemPlace ItemSettings::place() const {
  return valueOf(placeNames, text(placeKey));
}

void ItemSettings::setPlace(ItemPlace place) {
  defaults_.set(placeKey, nameOf(placeNames, place));
}

EdgeUse ItemSettings::edgeUse() const {
  const std::optional<Value> stored = defaults_.object(keepEdgeFreeKey);
  return stored && stored->toBool() == true ? EdgeUse::KeptFree : EdgeUse::Shared;
}

void ItemSettings::setEdgeUse(EdgeUse use) {
  defaults_.set(keepEdgeFreeKey, use == EdgeUse::KeptFree);
}

EdgePlace ItemSettings::floatingPlace() const {
  EdgePlace place{.edge = valueOf(edgeNames, text(edgeKey))};
  const std::optional<Value> stored = defaults_.object(alongEdgeKey);
  const std::optional<double> along = stored ? stored->toDouble() : std::nullopt;
  if (along && std::isfinite(*along)) {
    place.along = std::clamp(*along, 0.0, 1.0);
  }
  return place;
}

void ItemSettings::setFloatingPlace(const EdgePlace& place) {
  defaults_.set(edgeKey, nameOf(edgeNames, place.edge));
  defaults_.set(alongEdgeKey, place.along);
}

std::optional<std::string> ItemSettings::text(const char* key) const {
  const std::optional<Value> stored = defaults_.object(key);
  const std::string* text = stored ? stored->asString() : nullptr;
  return text == nullptr ? std::nullopt : std::optional(*text);
}

}  // namespace roomlattice::platform::x11
