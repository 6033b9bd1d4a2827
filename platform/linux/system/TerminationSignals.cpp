#include "platform/linux/system/TerminationSignals.h"

#include "platform/linux/system/StandardStreams.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <initializer_list>
#include <memory>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// In seconds, as alarm(2) has them.
constexpr unsigned timeToEnd = 4;

// Some send a signal twice, to the process and to its group; a person presses the keys again later.
constexpr std::int64_t impatienceInMilliseconds = 2000;

// Signal handlers have nothing else to find it by.
int eventFile = -1;

std::int64_t monotonicMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

void signalCame(int) {
  static volatile std::int64_t firstSignal = 0;
  const int error = errno;
  if (firstSignal == 0) {
    firstSignal = monotonicMilliseconds();
    // A timer of the kernel's needs no thread and no event loop.
    alarm(timeToEnd);
  } else if (monotonicMilliseconds() - firstSignal >= impatienceInMilliseconds) {
    _exit(EXIT_FAILURE);
  }
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(eventFile, &one, sizeof(one));
  errno = error;
}

void timeIsOver(int) {
  writeAtOnce(STDERR_FILENO, "roomlattice: something kept the program from ending in good order\n");
  _exit(EXIT_FAILURE);
}

void handleTimeout() {
  struct sigaction action {};
  action.sa_handler = timeIsOver;
  sigaction(SIGALRM, &action, nullptr);
}

/// A signal that whoever started the process had it ignore, as nohup does, stays ignored.
void handle(int signal) {
  struct sigaction former {};
  if (sigaction(signal, nullptr, &former) == 0 && former.sa_handler == SIG_IGN) {
    return;
  }
  struct sigaction action {};
  action.sa_handler = signalCame;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

/// Signals that whoever started the process happened to have blocked would never come.
void unblock(std::initializer_list<int> signals) {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : signals) {
    sigaddset(&set, signal);
  }
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals() {
  eventFile = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  handleTimeout();
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    handle(signal);
  }
  unblock({SIGTERM, SIGINT, SIGHUP, SIGALRM});
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGTTOU, SIG_IGN);
}

bool TerminationSignals::waitFor(std::chrono::milliseconds limit) const {
  pollfd file{eventFile, POLLIN, 0};
  // A signal that comes meanwhile ends the wait, before its handler has made the file readable.
  poll(&file, 1, static_cast<int>(limit.count()));
  return poll(&file, 1, 0) > 0;
}

Registration TerminationSignals::observe(std::function<void()> handler) const {
  auto notifier = std::make_shared<QSocketNotifier>(eventFile, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                   [source = notifier.get(), handler = std::move(handler)] {
                     source->setEnabled(false);
                     handler();
                   });
  return Registration([notifier = std::move(notifier)]() mutable { notifier.reset(); });
}

}  // namespace roomlattice::platform::linux
