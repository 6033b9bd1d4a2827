#include "platform/x11/connection/AuthorityFile.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace roomlattice::platform::x11 {
namespace {

// In bytes. Thousands of servers have room in this.
constexpr off_t largest = 1 << 20;

std::optional<std::string> authorityFile() {
  if (auto named = linux::environmentVariable("XAUTHORITY")) {
    return named;
  }
  const auto home = linux::environmentVariable("HOME");
  return home ? std::optional(*home + "/.Xauthority") : std::nullopt;
}

/// What is often given in place of a file that is not wanted.
bool isNullDevice(const struct stat& status) {
  return S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 3);
}

}  // namespace

std::optional<std::string> unusableAuthorityFile() {
  const std::optional<std::string> name = authorityFile();
  struct stat status {};
  if (!name || stat(name->c_str(), &status) != 0 || isNullDevice(status)) {
    return std::nullopt;
  }
  if (!S_ISREG(status.st_mode)) {
    return "the file of permissions for X servers is no ordinary file: '" + *name + "' (see XAUTHORITY)";
  }
  return status.st_size > largest
             ? std::optional("the file of permissions for X servers is too large: '" + *name + "' (see XAUTHORITY)")
             : std::nullopt;
}

}  // namespace roomlattice::platform::x11
