#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace roomlattice::platform::linux {

/// A file of log lines that never grows beyond a bound: when it is full it becomes the former file, in place of the
/// last one, and a new one is begun. Several processes may write to it. What cannot be written is lost: a log is no
/// reason to trouble the user.
class LogFile {
 public:
  static constexpr std::uintmax_t usualLimit = 524'288;  // bytes

  explicit LogFile(std::filesystem::path path, std::uintmax_t limit = usualLimit);

  /// Adds a line, given with its end.
  void append(const std::string& line);

  /// All lines there are, the oldest first; of files that others have made larger than the bound only the last ones.
  std::string contents() const;

 private:
  std::filesystem::path formerPath() const;

  std::filesystem::path path_;
  std::uintmax_t limit_;
};

}  // namespace roomlattice::platform::linux
