#include "platform/linux/system/Executable.h"

#include <string>
#include <string_view>
#include <system_error>

namespace roomlattice::platform::linux {

std::filesystem::path pathOfExecutable(const std::filesystem::path& link) {
  constexpr std::string_view mark = " (deleted)";
  std::error_code error;
  std::string path = std::filesystem::read_symlink(link, error).string();
  if (path.ends_with(mark) && !std::filesystem::exists(path, error)) {
    path.resize(path.size() - mark.size());
  }
  return path;
}

}  // namespace roomlattice::platform::linux
