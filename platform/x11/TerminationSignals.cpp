#include "platform/x11/TerminationSignals.h"

#include "platform/Fatal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

// What a signal handler may touch; the read end is the object's.
volatile std::sig_atomic_t writeEnd = -1;

void signalled(int) {
  const int savedError = errno;
  const char byte = 0;
  // A full pipe holds the news already.
  [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
  errno = savedError;
}

int openPipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    fatal("no pipe could be made for signals");
  }
  writeEnd = ends[1];
  return ends[0];
}

void setHandlers(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int signal : signals) {
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler)
    : readEnd_(openPipe()), notifier_(readEnd_, QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                   [this, handler = std::move(handler)](QSocketDescriptor) {
                     std::array<char, 16> bytes{};
                     [[maybe_unused]] const ssize_t count = read(readEnd_, bytes.data(), bytes.size());
                     handler();
                   });
  setHandlers(signalled);
}

TerminationSignals::~TerminationSignals() {
  setHandlers(SIG_DFL);
  close(readEnd_);
  close(writeEnd);
  writeEnd = -1;
}

}  // namespace roomlattice::platform::x11
