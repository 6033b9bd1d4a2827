#include "platform/x11/connection/SessionGuard.h"

#include "platform/linux/system/CommandLine.h"

#include <QCoreApplication>
#include <X11/Xlib.h>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

// A window manager that is restarted, or replaced by another, takes a moment.
constexpr std::chrono::milliseconds withoutWindowManager = 10s;

constexpr int failure = 1;

bool guarding = false;

[[noreturn]] void serverHasGone() {
  linux::printError("the X server has gone");
  // Nothing can be put in order without it: the toolkit would only stumble over its own broken connection. Settings
  // are on the disk already.
  _exit(failure);
}

/// The toolkit, too, ends the process when it finds its connection broken, from wherever it is.
void exitCalled() {
  if (guarding) {
    serverHasGone();
  }
}

int toolkitConnectionBroke(Display*) {
  serverHasGone();
}

}  // namespace

void watchToolkitConnection() {
  XSetIOErrorHandler(toolkitConnectionBroke);
  std::atexit(exitCalled);
  guarding = true;
}

WindowManagerWait waitForWindowManager(X11Connection& connection, const linux::TerminationSignals& signals,
                                       std::chrono::milliseconds limit) {
  constexpr std::chrono::milliseconds pause = 50ms;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  pollfd termination{signals.file(), POLLIN, 0};
  while (!findWindowManager(connection)) {
    if (connection.isLost()) {
      return WindowManagerWait::ServerLost;
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      return WindowManagerWait::TimedOut;
    }
    if (poll(&termination, 1, static_cast<int>(pause.count())) > 0) {
      return WindowManagerWait::Terminated;
    }
  }
  return WindowManagerWait::Found;
}

SessionGuard::SessionGuard(X11Connection& connection, WindowManagerWatch& windowManager)
    : windowManager_(windowManager) {
  patience_.setSingleShot(true);
  patience_.callOnTimeout([] {
    linux::printError("the window manager has gone, and no other has come");
    QCoreApplication::exit(failure);
  });
  loss_ = connection.observeLoss(serverHasGone);
  windowManagerChanges_ = windowManager.observe([this] { windowManagerChanged(); });
  // Again, now that the toolkit is there: it has put in a handler of its own, and of what is to be called at the exit
  // the last to be registered comes first, before anything of the toolkit is taken down.
  watchToolkitConnection();
  // It may have gone before anyone watched.
  windowManagerChanged();
}

SessionGuard::~SessionGuard() {
  guarding = false;
}

void SessionGuard::windowManagerChanged() {
  if (windowManager_.current()) {
    patience_.stop();
  } else if (!patience_.isActive()) {
    patience_.start(withoutWindowManager);
  }
}

}  // namespace roomlattice::platform::x11
