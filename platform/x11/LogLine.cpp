#include "platform/x11/LogLine.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace roomlattice::platform::x11 {

std::string stampedLogLine(std::chrono::system_clock::time_point time, const std::string& line) {
  const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
  const std::time_t calendarTime = static_cast<std::time_t>(seconds.count());
  std::tm local{};
  tzset();  // the time zone may have changed since the last line
  localtime_r(&calendarTime, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%d %H:%M:%S", &local);
  std::array<char, 64> stamp{};
  std::snprintf(stamp.data(), stamp.size(), "%s.%03d Roomlattice[%d] ", date.data(),
                static_cast<int>((sinceEpoch - seconds).count()), static_cast<int>(getpid()));
  return stamp.data() + line + "\n";
}

void writeLogLine(int file, const std::string& line) {
  const std::string text = stampedLogLine(std::chrono::system_clock::now(), line);
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t count = write(file, text.data() + written, text.size() - written);
    if (count < 0 && errno != EINTR) {
      return;
    }
    written += count < 0 ? 0 : static_cast<std::size_t>(count);
  }
}

}  // namespace roomlattice::platform::x11
