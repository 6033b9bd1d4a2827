#include "platform/linux/system/TerminationSignals.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <memory>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// Signal handlers have nothing else to find it by.
int eventFile = -1;

void signalCame(int) {
  const int error = errno;
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(eventFile, &one, sizeof(one));
  errno = error;
}

/// A signal that whoever started the process had it ignore, as nohup does, stays ignored.
void handle(int signal) {
  struct sigaction former {};
  if (sigaction(signal, nullptr, &former) == 0 && former.sa_handler == SIG_IGN) {
    return;
  }
  struct sigaction action {};
  action.sa_handler = signalCame;
  action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
  sigaction(signal, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals() {
  eventFile = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    handle(signal);
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

int TerminationSignals::file() const {
  return eventFile;
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
