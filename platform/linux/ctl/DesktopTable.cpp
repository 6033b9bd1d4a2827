#include "platform/linux/ctl/DesktopTable.h"

#include "platform/linux/control/ColorText.h"
#include "platform/linux/ctl/PlainText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace roomlattice::platform::linux {
namespace {

constexpr std::size_t columns = 5;
constexpr const char* gap = "  ";

using Row = std::array<std::string, columns>;

Row rowOf(const DesktopState& desktop) {
  return {desktop.number ? std::to_string(*desktop.number) : "-", plainText(desktop.name), colorText(desktop.color),
          plainText(desktop.uuid), plainText(desktop.display)};
}

std::string padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, columnsOf(text)), ' ');
}

/// `text` on the desktop's colour, in black or white.
std::string onColor(const std::string& text, const Color& color) {
  const auto component = [](double value) { return std::to_string(std::lround(value * 255.0)); };
  const bool isLight = 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue > 0.5;
  return "\x1b[" + std::string(isLight ? "30" : "97") + ";48;2;" + component(color.red) + ";" + component(color.green) +
         ";" + component(color.blue) + "m" + text + "\x1b[0m";
}

}  // namespace

std::string desktopTable(const std::vector<DesktopState>& desktops, Coloring coloring) {
  std::vector<Row> rows;
  std::array<std::size_t, columns> widths{};
  for (const DesktopState& desktop : desktops) {
    rows.push_back(rowOf(desktop));
    for (std::size_t column = 0; column < columns; ++column) {
      widths[column] = std::max(widths[column], columnsOf(rows.back()[column]));
    }
  }
  // Nothing follows the last one.
  widths.back() = 0;
  constexpr std::size_t colorColumn = 2;
  std::string table;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    table += desktops[index].isActive ? "*" : " ";
    for (std::size_t column = 0; column < columns; ++column) {
      const std::string cell = padded(rows[index][column], widths[column]);
      const bool isColored = coloring == Coloring::On && column == colorColumn;
      table += (column == 0 ? " " : gap) + (isColored ? onColor(cell, desktops[index].color) : cell);
    }
    table += "\n";
  }
  return table;
}

Value desktopValue(const DesktopState& desktop) {
  return Value::Dictionary{{"number", desktop.number ? Value(std::int64_t{*desktop.number}) : Value()},
                           {"name", desktop.name},
                           {"color", colorText(desktop.color)},
                           {"active", desktop.isActive},
                           {"fullscreen", !desktop.number},
                           {"uuid", desktop.uuid},
                           {"display", desktop.display}};
}

}  // namespace roomlattice::platform::linux
