#include "platform/simulated/SystemLog.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string_view>

namespace roomlattice::platform::simulated {
namespace {

std::optional<std::string> valueOf(const std::vector<std::string>& arguments, std::string_view option) {
  const auto found = std::ranges::find(arguments, option);
  return found == arguments.end() || found + 1 == arguments.end() ? std::nullopt : std::optional(*(found + 1));
}

/// "10m" and the like; nothing where it is not understood.
std::optional<Duration> parseSpan(const std::string& text) {
  int count = 0;
  const char* const end = text.data() + text.size();
  const auto [unit, error] = std::from_chars(text.data(), end, count);
  if (error != std::errc() || unit + 1 != end) {
    return std::nullopt;
  }
  switch (*unit) {
    case 's':
      return std::chrono::seconds(count);
    case 'm':
      return std::chrono::minutes(count);
    case 'h':
      return std::chrono::hours(count);
    default:
      return std::nullopt;
  }
}

std::string print(const LogLine& line) {
  char stamp[32];
  std::snprintf(stamp, sizeof(stamp), "%.3f", std::chrono::duration<double>(line.at).count());
  return std::string(stamp) + " " + line.process + ": " + line.text + "\n";
}

}  // namespace

void SystemLog::write(const std::string& process, const std::string& text) {
  lines_.push_back({.at = time_.wallClock(), .process = process, .text = text});
}

std::vector<std::string> SystemLog::texts() const {
  std::vector<std::string> texts;
  std::ranges::transform(lines_, std::back_inserter(texts), &LogLine::text);
  return texts;
}

std::string SystemLog::show(const std::vector<std::string>& arguments) const {
  const std::optional<std::string> predicate = valueOf(arguments, "--predicate");
  const std::optional<std::string> last = valueOf(arguments, "--last");
  const std::optional<Duration> span = last ? parseSpan(*last) : std::nullopt;
  std::string output;
  for (const LogLine& line : lines_) {
    const bool recent = !span || line.at >= time_.wallClock() - *span;
    if (recent && (!predicate || *predicate == "process == \"" + line.process + "\"")) {
      output += print(line);
    }
  }
  return output;
}

}  // namespace roomlattice::platform::simulated
