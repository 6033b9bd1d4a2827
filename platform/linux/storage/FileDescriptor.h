#pragma once

#include <filesystem>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {

/// Owner of an open file.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      close();
      number_ = std::exchange(other.number_, -1);
    }
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { close(); }

  /// False when opening it failed; errno tells why.
  explicit operator bool() const { return number_ >= 0; }
  int get() const { return number_; }

  void close() {
    if (number_ >= 0) {
      ::close(std::exchange(number_, -1));
    }
  }

 private:
  int number_ = -1;
};

/// Writes the whole text, unless the file takes no more: then it gives false, and errno tells why.
bool writeAll(int file, std::string_view text);

/// Whether an open file is the one that has the name now; another process may have moved or replaced it.
bool hasName(const FileDescriptor& file, const std::filesystem::path& name);

}  // namespace roomlattice::platform::linux
