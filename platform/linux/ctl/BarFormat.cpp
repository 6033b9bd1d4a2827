#include "platform/linux/ctl/BarFormat.h"

#include "platform/linux/control/ColorText.h"
#include "platform/linux/ctl/PlainText.h"
#include "support/JsonText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace roomlattice::platform::linux {
namespace {

/// What there is to show.
struct Shown {
  std::string number;
  std::string name;
  std::string color;
  std::string uuid;
  std::string display;
  std::string count;

  bool isEmpty() const { return name.empty(); }
};

Shown shownOf(const std::vector<DesktopState>& desktops) {
  const auto active = std::ranges::find(desktops, true, &DesktopState::isActive);
  if (active == desktops.end()) {
    return {};
  }
  const auto regular = std::ranges::count_if(desktops, [](const DesktopState& one) { return one.number.has_value(); });
  return {.number = active->number ? std::to_string(*active->number) : "",
          .name = plainText(active->name),
          .color = colorText(active->color),
          .uuid = plainText(active->uuid),
          .display = plainText(active->display),
          .count = std::to_string(regular)};
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// As the markup of Pango has it.
std::string inMarkup(std::string text) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 5> entities{
      {{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}, {"'", "&apos;"}}};
  for (const auto& [character, entity] : entities) {
    text = replaced(std::move(text), character, entity);
  }
  return text;
}

std::string json(const Value::Dictionary& dictionary) {
  return toJson(Value(dictionary), JsonLayout::Compact).value_or("{}");
}

std::string polybar(const Shown& shown) {
  // It has no way to write "%{": a blank without width keeps the two apart.
  return shown.isEmpty() ? "" : "%{F" + shown.color + "}" + replaced(shown.name, "%{", "%\u200b{") + "%{F-}";
}

std::string i3blocks(const Shown& shown) {
  return shown.isEmpty() ? json({{"full_text", ""}}) : json({{"full_text", shown.name}, {"color", shown.color}});
}

std::string i3bar(const Shown& shown) {
  Value::Dictionary block{{"name", "roomlattice"}, {"full_text", shown.name}};
  if (!shown.isEmpty()) {
    block.emplace("color", shown.color);
  }
  return "[" + json(block) + "],";
}

std::string markup(const Shown& shown) {
  return shown.isEmpty() ? "" : "<span foreground=\"" + shown.color + "\">" + inMarkup(shown.name) + "</span>";
}

std::string genmon(const Shown& shown) {
  return "<txt>" + markup(shown) + "</txt><txtclick>roomlatticectl menu</txtclick>";
}

std::string waybar(const Shown& shown) {
  return json({{"text", markup(shown)}, {"class", "desktop-" + shown.number}, {"alt", shown.number}});
}

std::string plain(const Shown& shown) {
  return shown.name;
}

struct Bar {
  std::string_view name;
  std::string (*line)(const Shown&);
};

constexpr std::array<Bar, 7> bars{{{"polybar", polybar},
                                   {"i3blocks", i3blocks},
                                   {"i3bar", i3bar},
                                   {"genmon", genmon},
                                   {"tint2", markup},
                                   {"waybar", waybar},
                                   {"lxqt", plain}}};

using Place = std::pair<std::string_view, std::string Shown::*>;
constexpr std::array<Place, 6> places{{{"{number}", &Shown::number},
                                       {"{name}", &Shown::name},
                                       {"{color}", &Shown::color},
                                       {"{uuid}", &Shown::uuid},
                                       {"{display}", &Shown::display},
                                       {"{count}", &Shown::count}}};

/// The place that `text` has at `at`; null where it has none.
const Place* placeAt(const std::string& text, std::size_t at) {
  const auto found = std::ranges::find_if(
      places, [&](const Place& place) { return std::string_view(text).substr(at).starts_with(place.first); });
  return found == places.end() ? nullptr : &*found;
}

std::string filledIn(const std::string& format, const Shown& shown) {
  std::string line;
  for (std::size_t at = 0; at < format.size();) {
    if (const Place* place = placeAt(format, at)) {
      line += shown.*place->second;
      at += place->first.size();
    } else {
      line += format[at++];
    }
  }
  return line;
}

}  // namespace

bool isBarFormat(const std::string& format) {
  return std::ranges::find(bars, format, &Bar::name) != bars.end() ||
         std::ranges::any_of(places, [&](const Place& place) { return format.find(place.first) != std::string::npos; });
}

std::string barFormatHeader(const std::string& format) {
  return format == "i3bar" ? "{\"version\":1}\n[\n" : "";
}

std::string barFormatLine(const std::string& format, const std::vector<DesktopState>& desktops) {
  const Shown shown = shownOf(desktops);
  const auto bar = std::ranges::find(bars, format, &Bar::name);
  if (bar != bars.end()) {
    return bar->line(shown);
  }
  return shown.isEmpty() ? "" : filledIn(format, shown);
}

}  // namespace roomlattice::platform::linux
