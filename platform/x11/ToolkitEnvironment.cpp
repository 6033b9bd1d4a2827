#include "platform/x11/ToolkitEnvironment.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace roomlattice::platform::x11 {
namespace {

struct Range {
  double least;
  double most;
};

constexpr Range scaleFactors{0.25, 16};
constexpr Range dotsPerInch{24, 1536};
constexpr double usualDotsPerInch = 96;

std::optional<double> numberIn(const Range& range, std::string_view text) {
  double number = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && rest == text.data() + text.size();
  return isNumber && number >= range.least && number <= range.most ? std::optional(number) : std::nullopt;
}

std::optional<double> scaleFactor(std::string_view text) {
  return numberIn(scaleFactors, text);
}

/// The largest of the factors for the screens, each perhaps with the name of one and "=" before it, separated by ";".
std::optional<double> scaleFactorOfScreens(std::string_view text) {
  double largest = 1.0;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(';'));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    if (part.empty()) {
      continue;
    }
    const std::size_t name = part.find('=');
    const auto factor = scaleFactor(name == std::string_view::npos ? part : part.substr(name + 1));
    if (!factor) {
      return std::nullopt;
    }
    largest = std::max(largest, *factor);
  }
  return largest;
}

std::optional<double> scaleFactorOfFonts(std::string_view text) {
  const auto dots = numberIn(dotsPerInch, text);
  return dots ? std::optional(*dots / usualDotsPerInch) : std::nullopt;
}

struct Setting {
  const char* variable;
  /// How much larger texts become by it; nothing where it is of no use.
  std::optional<double> (*factorOf)(std::string_view text);
};

constexpr Setting settings[] = {
    {"QT_SCALE_FACTOR", scaleFactor},
    {"QT_SCREEN_SCALE_FACTORS", scaleFactorOfScreens},
    {"QT_FONT_DPI", scaleFactorOfFonts},
};

}  // namespace

std::optional<std::string> unusableToolkitSetting() {
  // Each comes on top of the others.
  double scale = 1.0;
  for (const Setting& setting : settings) {
    const std::optional<std::string> value = linux::environmentVariable(setting.variable);
    if (!value) {
      continue;
    }
    const std::optional<double> factor = setting.factorOf(*value);
    scale *= factor.value_or(1.0);
    if (!factor || scale > scaleFactors.most) {
      return "the environment's " + std::string(setting.variable) + " is of no use: '" + value->substr(0, 100) + "'";
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::platform::x11
