#include "tests/linux/session/ChildProcess.h"

#include "tests/linux/session/Wait.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

std::string contents(int file) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 0; (count = pread(file, buffer.data(), buffer.size(), static_cast<off_t>(text.size()))) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

std::vector<char*> pointers(const std::vector<std::string>& arguments) {
  std::vector<char*> result;
  for (const std::string& argument : arguments) {
    result.push_back(const_cast<char*>(argument.c_str()));
  }
  result.push_back(nullptr);
  return result;
}

[[noreturn]] void become(char* const* arguments, pid_t parent, int output, int errorOutput) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(127);  // the parent died before the line above
  }
  dup2(output, STDOUT_FILENO);
  dup2(errorOutput, STDERR_FILENO);
  execvp(arguments[0], arguments);
  _exit(127);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments)
    : output_(memfd_create("output", MFD_CLOEXEC)), errorOutput_(memfd_create("error-output", MFD_CLOEXEC)) {
  const std::vector<char*> argumentPointers = pointers(arguments);
  const pid_t parent = getpid();
  // The pages of a process under the sanitizers are many; copying their table takes longer than most programs to start.
  id_ = vfork();
  if (id_ == 0) {
    become(argumentPointers.data(), parent, output_, errorOutput_);
  }
  if (id_ < 0) {
    throw std::runtime_error("cannot start " + arguments.front());
  }
}

ChildProcess::~ChildProcess() {
  kill();
  close(output_);
  close(errorOutput_);
}

bool ChildProcess::isRunning() {
  int status = 0;
  if (!status_ && waitpid(id_, &status, WNOHANG) == id_) {
    status_ = status;
  }
  return !status_;
}

void ChildProcess::signal(int number) const {
  if (!status_) {
    ::kill(id_, number);
  }
}

void ChildProcess::kill() {
  if (isRunning()) {
    signal(SIGKILL);
    int status = 0;
    while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
    }
    status_ = status;
  }
}

std::optional<int> ChildProcess::waitForEnd(std::chrono::milliseconds limit) {
  waitFor([this] { return !isRunning(); }, limit);
  return status_;
}

std::optional<int> ChildProcess::waitForExitStatus(std::chrono::milliseconds limit) {
  const std::optional<int> status = waitForEnd(limit);
  if (!status) {
    return std::nullopt;
  }
  return WIFEXITED(*status) ? WEXITSTATUS(*status) : 128 + WTERMSIG(*status);
}

std::string ChildProcess::output() const {
  return contents(output_);
}

std::string ChildProcess::errorOutput() const {
  return contents(errorOutput_);
}

std::string outputOf(const std::vector<std::string>& arguments) {
  ChildProcess child(arguments);
  if (child.waitForExitStatus() != 0) {
    throw std::runtime_error(arguments.front() + " failed: " + child.errorOutput());
  }
  return child.output();
}

}  // namespace roomlattice::tests
