#include "platform/linux/control/ColorText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace roomlattice::platform::linux {
namespace {

constexpr double full = 255.0;

int byteOf(double component) {
  return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * full));
}

}  // namespace

std::string colorText(const Color& color) {
  const Color given = color.inSRGB().value_or(Color::black());
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", byteOf(given.red), byteOf(given.green), byteOf(given.blue));
  return text.data();
}

std::optional<Color> colorFrom(const std::string& text) {
  constexpr std::size_t length = 7;
  const bool isHexadecimal =
      text.size() == length && text[0] == '#' &&
      std::all_of(text.begin() + 1, text.end(), [](unsigned char c) { return std::isxdigit(c) != 0; });
  if (!isHexadecimal) {
    return std::nullopt;
  }
  const auto component = [&](std::size_t index) {
    return static_cast<double>(std::strtol(text.substr(index, 2).c_str(), nullptr, 16)) / full;
  };
  return Color{component(1), component(3), component(5)};
}

}  // namespace roomlattice::platform::linux
