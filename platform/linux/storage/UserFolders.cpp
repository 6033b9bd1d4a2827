#include "platform/linux/storage/UserFolders.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

using Path = std::filesystem::path;

std::optional<Path> absolutePath(const char* text) {
  const Path path = text == nullptr ? "" : text;
  return path.is_absolute() ? std::optional(path) : std::nullopt;
}

std::optional<Path> homeFolder() {
  if (auto home = absolutePath(std::getenv("HOME"))) {
    return home;
  }
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? std::nullopt : absolutePath(user->pw_dir);
}

/// The folder of `variable`, where a relative one is invalid and to be ignored, or the one below the user's home.
std::optional<Path> programFolder(const char* variable, const char* belowHome) {
  std::optional<Path> folder = absolutePath(std::getenv(variable));
  if (!folder) {
    folder = homeFolder();
    if (!folder) {
      return std::nullopt;
    }
    *folder /= belowHome;
  }
  return *folder / "roomlattice";
}

}  // namespace

std::optional<Path> configurationFolder() {
  return programFolder("XDG_CONFIG_HOME", ".config");
}

std::optional<Path> stateFolder() {
  return programFolder("XDG_STATE_HOME", ".local/state");
}

void makeFolder(const Path& folder) {
  if (folder.empty() || mkdir(folder.c_str(), S_IRWXU) == 0 || errno != ENOENT) {
    return;
  }
  makeFolder(folder.parent_path());
  mkdir(folder.c_str(), S_IRWXU);
}

}  // namespace roomlattice::platform::linux
