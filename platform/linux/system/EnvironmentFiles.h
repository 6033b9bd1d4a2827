#pragma once

#include <string>
#include <vector>

struct stat;

namespace roomlattice::platform::linux {

/// What somebody who wants to read from something has to expect. The null device passes for an ordinary file: it is
/// often given in place of one that is not wanted.
enum class FileNature {
  Ordinary,
  Folder,
  /// A pipe, a socket or a device: reading may wait, and need not come to an end.
  Endless,
};

FileNature natureOf(const struct stat& status);

/// Unsets those variables of the environment by which libraries find a file that they read at the start, or when the
/// user types, where that is Endless; gives their names. To be called while there is one thread.
std::vector<std::string> withholdEndlessFiles();

}  // namespace roomlattice::platform::linux
