#pragma once

#include <chrono>
#include <string>

namespace roomlattice::platform::x11 {

/// "2024-05-01 12:00:00.123 Roomlattice[4711] line", in local time and with its end.
std::string stampedLogLine(std::chrono::system_clock::time_point time, const std::string& line);

/// Writes the line, stamped with the present time, in one piece where the system allows it.
void writeLogLine(int file, const std::string& line);

}  // namespace roomlattice::platform::x11
