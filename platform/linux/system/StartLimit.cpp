#include "platform/linux/system/StartLimit.h"

#include "platform/linux/system/StandardStreams.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

/// Nothing of the process can be relied on but what the signal brings.
void timeOfStartIsOver(int, siginfo_t* information, void*) {
  writeAtOnce(STDERR_FILENO, "roomlattice: ");
  writeAtOnce(STDERR_FILENO, static_cast<const char*>(information->si_value.sival_ptr));
  writeAtOnce(STDERR_FILENO, "\n");
  _exit(EXIT_FAILURE);
}

void handleEndOfTime(int signal) {
  struct sigaction action {};
  action.sa_sigaction = timeOfStartIsOver;
  action.sa_flags = SA_SIGINFO;
  sigaction(signal, &action, nullptr);
  // Whoever started the process may have blocked it.
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace

StartLimit::StartLimit(std::chrono::milliseconds limit, const char* reason) {
  handleEndOfTime(SIGRTMIN);
  sigevent event{};
  event.sigev_notify = SIGEV_SIGNAL;
  event.sigev_signo = SIGRTMIN;
  event.sigev_value.sival_ptr = const_cast<char*>(reason);
  timer_t timer{};
  if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0) {
    return;  // the user has as many timers and signals waiting as may be: there is no limit then
  }
  timer_ = timer;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit);
  itimerspec time{};
  time.it_value.tv_sec = seconds.count();
  time.it_value.tv_nsec = std::chrono::nanoseconds(limit - seconds).count();
  timer_settime(timer, 0, &time, nullptr);
}

StartLimit::~StartLimit() {
  if (timer_) {
    timer_delete(*timer_);
  }
}

}  // namespace roomlattice::platform::linux
