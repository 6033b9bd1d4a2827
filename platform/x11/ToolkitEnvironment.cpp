#include "platform/x11/ToolkitEnvironment.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <algorithm>
#include <charconv>
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

bool isIn(const Range& range, std::string_view text) {
  double number = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && rest == text.data() + text.size() && number >= range.least && number <= range.most;
}

/// Factors for the screens, each perhaps with the name of one and "=" before it, separated by ";".
bool areScaleFactors(std::string_view text) {
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(';'));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    const std::size_t name = part.find('=');
    if (!part.empty() && !isIn(scaleFactors, name == std::string_view::npos ? part : part.substr(name + 1))) {
      return false;
    }
  }
  return true;
}

bool isScaleFactor(std::string_view text) {
  return isIn(scaleFactors, text);
}

bool isDotsPerInch(std::string_view text) {
  return isIn(dotsPerInch, text);
}

struct Setting {
  const char* variable;
  bool (*isUsable)(std::string_view text);
};

constexpr Setting settings[] = {
    {"QT_SCALE_FACTOR", isScaleFactor},
    {"QT_SCREEN_SCALE_FACTORS", areScaleFactors},
    {"QT_FONT_DPI", isDotsPerInch},
};

}  // namespace

std::optional<std::string> unusableToolkitSetting() {
  for (const Setting& setting : settings) {
    const std::optional<std::string> value = linux::environmentVariable(setting.variable);
    if (value && !setting.isUsable(*value)) {
      return "the environment's " + std::string(setting.variable) + " is of no use: '" + value->substr(0, 100) + "'";
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::platform::x11
