#include "platform/linux/system/ChildRunner.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

using Clock = std::chrono::steady_clock;

struct Pipe {
  FileDescriptor reader;
  FileDescriptor writer;
};

Pipe makePipe() {
  std::array<int, 2> ends{-1, -1};
  // Closed in every child, also in one that another thread starts at this moment.
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    return {};
  }
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

/// How the child starts: its output to the pipe, no input, and signals as a program expects them.
class SpawnSettings {
 public:
  SpawnSettings(int output, ChildRunner::ErrorOutput errorOutput) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    if (errorOutput == ChildRunner::ErrorOutput::WithOutput) {
      posix_spawn_file_actions_adddup2(&actions_, output, STDERR_FILENO);
    } else {
      posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnSettings() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* actions() const { return &actions_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

std::vector<char*> argumentPointers(const std::string& path, const std::vector<std::string>& arguments) {
  std::vector<char*> pointers{const_cast<char*>(path.c_str())};
  for (const std::string& argument : arguments) {
    pointers.push_back(const_cast<char*>(argument.c_str()));
  }
  pointers.push_back(nullptr);
  return pointers;
}

/// For poll: in milliseconds, 0 once it is too late.
int timeLeft(Clock::time_point end) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
  return static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(left.count(), 0, std::numeric_limits<int>::max()));
}

LaunchError launchError(const std::string& path, int number) {
  return {path + ": " + std::generic_category().message(number)};
}

}  // namespace

ChildRunner::ChildRunner() : interruption_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

std::variant<ChildResult, LaunchError> ChildRunner::run(const std::string& path,
                                                        const std::vector<std::string>& arguments,
                                                        const Options& options) const {
  Pipe pipe = makePipe();
  if (!pipe.writer) {
    return launchError(path, errno);
  }
  const SpawnSettings settings(pipe.writer.get(), options.errorOutput);
  pid_t child = -1;
  const int failure = posix_spawn(&child, path.c_str(), settings.actions(), settings.attributes(),
                                  argumentPointers(path, arguments).data(), environ);
  if (failure != 0) {
    return launchError(path, failure);
  }
  // The output ends when the last process that holds this end is gone, and that must not be this one.
  pipe.writer.close();
  std::string bytes = collect(pipe.reader.get(), child, options.limit);
  int status = -1;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return ChildResult{std::move(bytes), status == 0};
}

void ChildRunner::interrupt() {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(interruption_.get(), &one, sizeof(one));
}

std::string ChildRunner::collect(int output, pid_t child, std::optional<std::chrono::milliseconds> limit) const {
  const auto end = Clock::now() + limit.value_or(std::chrono::milliseconds::zero());
  std::string bytes;
  std::array<char, 65536> buffer{};
  std::array<pollfd, 2> waiting{{{output, POLLIN, 0}, {interruption_.get(), POLLIN, 0}}};
  for (;;) {
    const int ready = poll(waiting.data(), waiting.size(), limit ? timeLeft(end) : -1);
    if (ready < 0) {
      continue;
    }
    if (ready == 0 || waiting[1].revents != 0) {
      kill(child, SIGKILL);
      return bytes;
    }
    const ssize_t count = read(output, buffer.data(), buffer.size());
    if (count == 0 || (count < 0 && errno != EINTR)) {
      return bytes;
    }
    bytes.append(buffer.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  }
}

}  // namespace roomlattice::platform::linux
