#include "tests/x11/session/X11Session.h"

#include "tests/x11/session/SessionStock.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace roomlattice::tests {

X11Session::X11Session(const SessionOptions& options)
    : base_(takeSessionBase(options)),
      environment_(base_->variables()),
      // A touchpad's driver takes one connection in its server's life, and a display of choice may be wanted again.
      isForLater_(options.server == ServerKind::Xvfb && !options.display) {}

X11Session::~X11Session() {
  if (isForLater_ && !::testing::Test::HasFailure()) {
    leaveSessionBase(std::move(base_));
  }
}

void X11Session::startWindowManager(WindowManagerKind kind) {
  isForLater_ = false;
  base_->startWindowManager(kind);
}

void X11Session::stopWindowManager() {
  isForLater_ = false;
  base_->stopWindowManager();
}

ChildProcess* X11Session::windowManager() {
  isForLater_ = false;
  return base_->windowManager();
}

void X11Session::endServer(int signal) {
  signalServer(signal);
  if (!base_->server().process().waitForEnd()) {
    throw std::runtime_error("the X server does not end");
  }
}

void X11Session::signalServer(int signal) {
  isForLater_ = false;
  base_->server().process().signal(signal);
}

void X11Session::stopBus() {
  isForLater_ = false;
  base_->bus().stop();
}

void X11Session::signalBus(int signal) {
  isForLater_ = false;
  base_->bus().signal(signal);
}

}  // namespace roomlattice::tests
