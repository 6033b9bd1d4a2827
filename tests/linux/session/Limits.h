#pragma once

#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <unistd.h>

namespace roomlattice::tests {

/// As long as it lives, no file grows beyond a size: what a full disk looks like to those who write.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : former_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, former_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*former_)(int);
  rlimit before_{};
};

/// As long as it lives, permissions of files count for this process, which they do not for the superuser. `folder` and
/// what is in it belongs to the process.
class WithoutPrivileges {
 public:
  explicit WithoutPrivileges(const std::filesystem::path& folder) {
    if (geteuid() == 0) {
      give(folder);
      for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        give(entry.path());
      }
      changed_ = seteuid(nobody) == 0;
    }
  }
  ~WithoutPrivileges() {
    if (changed_ && seteuid(0) != 0) {
      std::abort();
    }
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

 private:
  static constexpr uid_t nobody = 65534;

  static void give(const std::filesystem::path& path) {
    [[maybe_unused]] const int result = lchown(path.c_str(), nobody, static_cast<gid_t>(-1));
  }

  bool changed_ = false;
};

}  // namespace roomlattice::tests
