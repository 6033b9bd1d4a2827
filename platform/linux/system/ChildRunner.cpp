#include "platform/linux/system/ChildRunner.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
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

/// What becomes of a copy of this process. Another thread may have held any lock when it was made: only calls that are
/// safe in signal handlers may be made.
class Beginning {
 public:
  Beginning(const std::string& path, const std::vector<std::string>& arguments, ChildRunner::ErrorOutput errorOutput)
      : arguments_(argumentPointers(path, arguments)), errorOutput_(errorOutput), parent_(getpid()) {}

  /// Runs the program, its output going to a pipe, with no input, with signals as programs expect them, and in a
  /// process group of its own, so that all it starts can be ended with it. It ends with the process that started it.
  /// Writes the reason to `failure` when there is no such program.
  [[noreturn]] void become(int output, int failure) const {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() == parent_ && redirect(output)) {
      resetSignals();
      execv(arguments_.front(), arguments_.data());
    }
    const int number = errno;
    [[maybe_unused]] const ssize_t written = write(failure, &number, sizeof(number));
    _exit(127);
  }

 private:
  static std::vector<char*> argumentPointers(const std::string& path, const std::vector<std::string>& arguments) {
    std::vector<char*> pointers{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments) {
      pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
  }

  bool redirect(int output) const {
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    const int errors = errorOutput_ == ChildRunner::ErrorOutput::WithOutput ? output : nothing;
    return dup2(nothing, STDIN_FILENO) >= 0 && dup2(output, STDOUT_FILENO) >= 0 && dup2(errors, STDERR_FILENO) >= 0;
  }

  static void resetSignals() {
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) {
      sigaction(signal, &standard, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);
  }

  std::vector<char*> arguments_;
  ChildRunner::ErrorOutput errorOutput_;
  pid_t parent_;
};

/// Why the program could not be run; 0 when it runs, which closes the other end.
int failureOf(const FileDescriptor& reader) {
  int number = 0;
  ssize_t count = 0;
  do {
    count = read(reader.get(), &number, sizeof(number));
  } while (count < 0 && errno == EINTR);
  return count == static_cast<ssize_t>(sizeof(number)) ? number : 0;
}

void waitForEnd(pid_t child, int& status) {
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
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
  Pipe failure = makePipe();
  if (!pipe.writer || !failure.writer) {
    return launchError(path, errno);
  }
  const Beginning beginning(path, arguments, options.errorOutput);
  const pid_t child = fork();
  if (child == 0) {
    beginning.become(pipe.writer.get(), failure.writer.get());
  }
  if (child < 0) {
    return launchError(path, errno);
  }
  // The output ends when the last process that holds this end is gone, and that must not be this one.
  pipe.writer.close();
  failure.writer.close();
  int status = -1;
  if (const int number = failureOf(failure.reader); number != 0) {
    waitForEnd(child, status);
    return launchError(path, number);
  }
  const Deadline deadline = options.limit ? Deadline(Clock::now() + *options.limit) : std::nullopt;
  const FileDescriptor childExit(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
  std::string bytes;
  // One that has closed its output may live on. Where the kernel cannot tell of its exit, it is waited for.
  if (!collect(pipe.reader, deadline, bytes) || (childExit && !waitFor(childExit, deadline))) {
    kill(-child, SIGKILL);
  }
  waitForEnd(child, status);
  return ChildResult{std::move(bytes), status == 0};
}

void ChildRunner::interrupt() {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(interruption_.get(), &one, sizeof(one));
}

bool ChildRunner::collect(const FileDescriptor& output, Deadline deadline, std::string& bytes) const {
  std::array<char, 65536> buffer{};
  while (waitFor(output, deadline)) {
    const ssize_t count = read(output.get(), buffer.data(), buffer.size());
    if (count == 0 || (count < 0 && errno != EINTR)) {
      return true;
    }
    bytes.append(buffer.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  }
  return false;
}

bool ChildRunner::waitFor(const FileDescriptor& source, Deadline deadline) const {
  std::array<pollfd, 2> waiting{{{source.get(), POLLIN, 0}, {interruption_.get(), POLLIN, 0}}};
  int ready = -1;
  while (ready < 0) {
    ready = poll(waiting.data(), waiting.size(), deadline ? timeLeft(*deadline) : -1);
  }
  return ready > 0 && waiting[1].revents == 0;
}

}  // namespace roomlattice::platform::linux
