#include "platform/x11/connection/AuthorityFile.h"

#include "platform/linux/system/EnvironmentFiles.h"
#include "platform/linux/system/EnvironmentVariable.h"

#include <sys/stat.h>

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

}  // namespace

std::optional<std::string> unusableAuthorityFile() {
  const std::optional<std::string> name = authorityFile();
  struct stat status {};
  if (!name || stat(name->c_str(), &status) != 0) {
    return std::nullopt;
  }
  if (linux::natureOf(status) != linux::FileNature::Ordinary) {
    return "the file of permissions for X servers is no ordinary file: '" + *name + "' (see XAUTHORITY)";
  }
  return status.st_size > largest
             ? std::optional("the file of permissions for X servers is too large: '" + *name + "' (see XAUTHORITY)")
             : std::nullopt;
}

}  // namespace roomlattice::platform::x11
