#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace roomlattice::platform::linux {

/// "2024-05-01 12:00:00.123+0200 Roomlattice[4711] line", in local time and with its end.
std::string stampedLogLine(std::chrono::system_clock::time_point time, const std::string& line);

/// Such a line, of now, that tells how many are missing in its place.
std::string lineAboutLoss(std::size_t lines);

/// The part of a log whose lines were stamped at `start` or later. A line without a stamp goes on with the one before
/// it.
std::string logSince(std::chrono::system_clock::time_point start, std::string_view log);

}  // namespace roomlattice::platform::linux
