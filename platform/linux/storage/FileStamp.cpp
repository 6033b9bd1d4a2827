#include "platform/linux/storage/FileStamp.h"

namespace roomlattice::platform::linux {
namespace {

bool same(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

}  // namespace

FileStamp::FileStamp(const struct stat& status)
    : device(status.st_dev),
      inode(status.st_ino),
      size(status.st_size),
      modified(status.st_mtim),
      changed(status.st_ctim) {}

std::chrono::nanoseconds FileStamp::age() const {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return std::chrono::seconds(now.tv_sec - changed.tv_sec) + std::chrono::nanoseconds(now.tv_nsec - changed.tv_nsec);
}

bool FileStamp::operator==(const FileStamp& other) const {
  return equalsApartFromName(other) && same(changed, other.changed);
}

bool FileStamp::equalsApartFromName(const FileStamp& other) const {
  return device == other.device && inode == other.inode && size == other.size && same(modified, other.modified);
}

}  // namespace roomlattice::platform::linux
