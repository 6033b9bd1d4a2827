#include "platform/linux/system/StandardStreams.h"

#include "platform/linux/storage/FileDescriptor.h"
#include "platform/linux/system/LogLine.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

/// What has not got through to standard error.
struct Loss {
  std::mutex mutex;
  std::size_t lines = 0;
  // The last thing that got through has no line end.
  bool inMidLine = false;
};

Loss& loss() {
  static Loss loss;
  return loss;
}

void fillClosedStreams() {
  // The lowest free number is the one that is given.
  int file = 0;
  do {
    file = open("/dev/null", O_RDWR);
  } while (file >= 0 && file <= STDERR_FILENO);
  if (file > STDERR_FILENO) {
    close(file);
  }
}

bool mayHaveToBeWaitedFor(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode));
}

/// Whether to wait belongs to an opening of a file, which other processes share: so this one opens it anew.
void openAnewWithoutWaiting(int file) {
  const std::string name = "/proc/self/fd/" + std::to_string(file);
  const FileDescriptor opened(open(name.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_APPEND | O_CLOEXEC));
  if (opened) {
    dup2(opened.get(), file);
  }
}

bool getsThrough(Loss& loss, std::string_view line) {
  const std::size_t written = writeAtOnce(STDERR_FILENO, line);
  if (written > 0) {
    loss.inMidLine = line[written - 1] != '\n';
  }
  return written == line.size();
}

bool tellOfLoss(Loss& loss) {
  if (loss.inMidLine && !getsThrough(loss, "\n")) {
    return false;
  }
  if (loss.lines > 0) {
    if (!getsThrough(loss, lineAboutLoss(loss.lines))) {
      return false;
    }
    loss.lines = 0;
  }
  return true;
}

}  // namespace

void prepareStandardStreams() {
  fillClosedStreams();
  if (mayHaveToBeWaitedFor(STDERR_FILENO)) {
    openAnewWithoutWaiting(STDERR_FILENO);
  }
}

void writeToStandardError(std::string_view line) {
  Loss& lost = loss();
  const std::scoped_lock lock(lost.mutex);
  if (!tellOfLoss(lost) || !getsThrough(lost, line)) {
    ++lost.lines;
  }
}

std::size_t writeAtOnce(int file, std::string_view text) {
  std::size_t done = 0;
  while (done < text.size()) {
    // A pipe that is ready takes this much, even where it could not be opened anew.
    const std::string_view part = text.substr(done, PIPE_BUF);
    ssize_t count = send(file, part.data(), part.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count < 0 && errno == ENOTSOCK) {
      pollfd room{file, POLLOUT, 0};
      count = poll(&room, 1, 0) > 0 ? write(file, part.data(), part.size()) : 0;
    }
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      break;
    }
    done += static_cast<std::size_t>(count);
  }
  return done;
}

}  // namespace roomlattice::platform::linux
