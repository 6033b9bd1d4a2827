#include "platform/linux/system/LogLine.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <optional>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

using std::chrono::milliseconds;
using std::chrono::system_clock;

constexpr const char* dateFormat = "%Y-%m-%d %H:%M:%S";

// The clock's own time points count nanoseconds: they end in the year 2262, and what a line says may be any year.
using Stamp = std::chrono::sys_time<milliseconds>;

std::optional<Stamp> stampOf(const std::string& line) {
  std::tm date{};
  const char* rest = strptime(line.c_str(), dateFormat, &date);
  int thousandths = 0;
  int digits = 0;
  if (rest == nullptr || std::sscanf(rest, ".%3d%n", &thousandths, &digits) != 1) {
    return std::nullopt;
  }
  std::tm zone{};
  if (strptime(rest + digits, "%z", &zone) == nullptr) {
    return std::nullopt;
  }
  return Stamp(std::chrono::seconds(timegm(&date) - zone.tm_gmtoff) + milliseconds(thousandths));
}

}  // namespace

std::string stampedLogLine(system_clock::time_point time, const std::string& line) {
  const auto sinceEpoch = std::chrono::duration_cast<milliseconds>(time.time_since_epoch());
  const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
  const std::time_t calendarTime = static_cast<std::time_t>(seconds.count());
  std::tm local{};
  tzset();  // the time zone may have changed since the last line
  localtime_r(&calendarTime, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), dateFormat, &local);
  std::array<char, 8> zone{};
  std::strftime(zone.data(), zone.size(), "%z", &local);
  std::array<char, 80> stamp{};
  std::snprintf(stamp.data(), stamp.size(), "%s.%03d%s Roomlattice[%d] ", date.data(),
                static_cast<int>((sinceEpoch - seconds).count()), zone.data(), static_cast<int>(getpid()));
  return stamp.data() + line + "\n";
}

std::string lineAboutLoss(std::size_t lines) {
  return stampedLogLine(system_clock::now(), "[Roomlattice] lines lost here: " + std::to_string(lines));
}

std::string logSince(system_clock::time_point start, std::string_view log) {
  const auto earliest = std::chrono::ceil<milliseconds>(start);
  std::string recent;
  bool isRecent = false;
  while (!log.empty()) {
    const std::string line(log.substr(0, log.find('\n')));
    log.remove_prefix(std::min(line.size() + 1, log.size()));
    if (const auto stamp = stampOf(line)) {
      isRecent = *stamp >= earliest;
    }
    if (isRecent) {
      recent += line + "\n";
    }
  }
  return recent;
}

}  // namespace roomlattice::platform::linux
