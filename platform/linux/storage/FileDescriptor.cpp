#include "platform/linux/storage/FileDescriptor.h"

#include <cerrno>
#include <sys/stat.h>

namespace roomlattice::platform::linux {

bool writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count < 0 && errno != EINTR) {
      return false;
    }
    text.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
  }
  return true;
}

bool hasName(const FileDescriptor& file, const std::filesystem::path& name) {
  struct stat opened {};
  struct stat named {};
  return fstat(file.get(), &opened) == 0 && stat(name.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

}  // namespace roomlattice::platform::linux
