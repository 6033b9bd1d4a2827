#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace roomlattice::tests {

/// A pipe end that children inherit, for those that announce on it that they are ready.
class AnnouncementPipe {
 public:
  AnnouncementPipe() {
    if (pipe(ends_.data()) != 0) {
      throw std::runtime_error("cannot make a pipe");
    }
  }
  ~AnnouncementPipe() {
    close(ends_[0]);
    closeWriter();
  }
  AnnouncementPipe(const AnnouncementPipe&) = delete;
  AnnouncementPipe& operator=(const AnnouncementPipe&) = delete;

  std::string writer() const { return std::to_string(ends_[1]); }

  /// The line that the child writes; empty when it ends without one.
  std::string readLine() {
    closeWriter();
    std::string line;
    for (char character = 0; read(ends_[0], &character, 1) == 1 && character != '\n';) {
      line.push_back(character);
    }
    return line;
  }

 private:
  void closeWriter() {
    if (ends_[1] >= 0) {
      close(ends_[1]);
      ends_[1] = -1;
    }
  }

  std::array<int, 2> ends_{-1, -1};
};

}  // namespace roomlattice::tests
