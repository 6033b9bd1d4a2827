#include "platform/linux/storage/InotifyWatches.h"

#include <algorithm>
#include <array>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <system_error>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

// linux/magic.h and the kernel's sources: file systems that may change without the kernel here doing it.
constexpr std::array<std::uint32_t, 7> sharedFileSystems = {
    0x6969 /* NFS */,    0xff534d42 /* CIFS */, 0xfe534d42 /* SMB2 */, 0x65735546 /* FUSE */,
    0x01021997 /* 9P */, 0x5346414f /* AFS */,  0x00c36400 /* Ceph */,
};

constexpr std::uint32_t comingAndGoing = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t changing = IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB;
constexpr std::uint32_t folderGoing = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT;

// Somebody who makes and removes folders without a pause has to end some time.
constexpr int mostFolderChanges = 10;

bool isShared(const std::filesystem::path& folder) {
  struct statfs status {};
  const bool known = statfs(folder.c_str(), &status) == 0;
  return !known ||
         std::ranges::find(sharedFileSystems, static_cast<std::uint32_t>(status.f_type)) != sharedFileSystems.end();
}

}  // namespace

InotifyWatches::InotifyWatches(const Path& path) : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  std::error_code error;
  const Path folder = std::filesystem::weakly_canonical(path.parent_path(), error);
  isReliable_ = descriptor_ && !error && watchFile(folder / path.filename());
  // A file behind a link changes in another folder.
  const Path end = std::filesystem::weakly_canonical(path, error);
  if (isReliable_ && end != folder / path.filename()) {
    isReliable_ = !error && watchFile(end);
  }
}

bool InotifyWatches::watchFile(const Path& file) {
  Path folder;
  bool isSettled = false;
  for (int attempt = 0; attempt < mostFolderChanges && !isSettled; ++attempt) {
    std::error_code error;
    Path name = file.filename();
    folder = file.parent_path();
    std::uint32_t events = comingAndGoing | changing;
    // While the folder is missing, the last one that is there tells when the next one comes.
    while (!std::filesystem::is_directory(folder, error) && folder.has_relative_path()) {
      name = folder.filename();
      folder = folder.parent_path();
      events = comingAndGoing;
    }
    // What came or went before the watch was there has been told by nobody.
    isSettled = watchFolder(folder, events | folderGoing, name) &&
                (folder == file.parent_path() || !std::filesystem::is_directory(folder / name, error));
  }
  if (!isSettled || isShared(folder)) {
    return false;
  }
  // The folders above have other entries that come and go often. Those need not wake anybody.
  while (folder.has_relative_path()) {
    folder = folder.parent_path();
    if (!watchFolder(folder, folderGoing, {})) {
      return false;
    }
  }
  return true;
}

bool InotifyWatches::watchFolder(const Path& folder, std::uint32_t events, const std::string& name) {
  const int watch = inotify_add_watch(descriptor_.get(), folder.c_str(), events | IN_ONLYDIR | IN_MASK_ADD);
  if (watch >= 0 && !name.empty()) {
    names_.emplace(watch, name);
  }
  return watch >= 0;
}

InotifyWatches::News InotifyWatches::news() const {
  alignas(inotify_event) std::array<char, 4096> buffer{};
  News news;
  for (ssize_t size = 0; (size = read(descriptor_.get(), buffer.data(), buffer.size())) > 0;) {
    for (ssize_t at = 0; at < size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(buffer.data() + at);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event.len);
      const auto [first, last] = names_.equal_range(event.wd);
      const bool matters = event.len == 0 || std::any_of(first, last, [&event](const auto& entry) {
                             return entry.second == static_cast<const char*>(event.name);
                           });
      news.isChanged = news.isChanged || matters;
      news.isRebuilt = news.isRebuilt || (matters && (event.mask & changing) == 0);
    }
  }
  return news;
}

}  // namespace roomlattice::platform::linux
