#pragma once

#include "platform/linux/storage/FileDescriptor.h"

#include <unistd.h>

namespace roomlattice::tests {

/// Standard error is something else while this lives.
class StandardErrorInstead {
 public:
  explicit StandardErrorInstead(const platform::linux::FileDescriptor& file) : former_(dup(STDERR_FILENO)) {
    dup2(file.get(), STDERR_FILENO);
  }
  ~StandardErrorInstead() { dup2(former_.get(), STDERR_FILENO); }
  StandardErrorInstead(const StandardErrorInstead&) = delete;
  StandardErrorInstead& operator=(const StandardErrorInstead&) = delete;

 private:
  platform::linux::FileDescriptor former_;
};

}  // namespace roomlattice::tests
