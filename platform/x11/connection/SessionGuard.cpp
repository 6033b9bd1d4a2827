#include "platform/x11/connection/SessionGuard.h"

#include "platform/linux/system/CommandLine.h"

#include <QCoreApplication>
#include <X11/Xlib.h>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

// A window manager that is restarted, or replaced by another, takes a moment.
constexpr std::chrono::milliseconds withoutWindowManager = 10s;

constexpr int failure = 1;

bool guarding = false;

// What the toolkit calls has nothing else to find it by.
std::function<void()>& lastWork() {
  static std::function<void()> work = [] {};
  return work;
}

[[noreturn]] void serverHasGone() {
  linux::printError("the X server has gone");
  lastWork()();
  // Without the server the toolkit's own way out would only meet its broken connection.
  _exit(failure);
}

void end(const char* reason) {
  linux::printError(reason);
  QCoreApplication::exit(failure);
}

/// The toolkit calls exit, from wherever it is, when it finds its connection broken.
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
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!findWindowManager(connection)) {
    if (connection.isLost()) {
      return WindowManagerWait::ServerLost;
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      return WindowManagerWait::TimedOut;
    }
    if (signals.waitFor(50ms)) {
      return WindowManagerWait::Terminated;
    }
  }
  return WindowManagerWait::Found;
}

SessionGuard::SessionGuard(X11Connection& connection, InstanceLock& lock, WindowManagerWatch& windowManager,
                           std::function<void()> work)
    : windowManager_(windowManager), patience_([] { end("the window manager has gone, and no other has come"); }) {
  lossOfClaim_ = lock.observeLoss([] { end("another program has taken over the X11 display"); });
  lastWork() = std::move(work);
  loss_ = connection.observeLoss(serverHasGone);
  windowManagerChanges_ = windowManager.observe([this] { windowManagerChanged(); });
  // This is the second call. The toolkit has installed an error handler of its own since the first, and ours has to
  // take its place. What is registered last runs first at the exit: so ours runs before the toolkit takes anything
  // down.
  watchToolkitConnection();
  // The window manager may have gone before anyone watched.
  windowManagerChanged();
}

SessionGuard::~SessionGuard() {
  guarding = false;
  lastWork() = [] {};
}

void SessionGuard::windowManagerChanged() {
  if (windowManager_.current()) {
    patience_.stop();
  } else if (!patience_.isRunning()) {
    patience_.start(withoutWindowManager);
  }
}

}  // namespace roomlattice::platform::x11
