#include "platform/x11/SessionGuard.h"

#include "platform/x11/CommandLine.h"

#include <QCoreApplication>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

// A window manager that is restarted, or replaced by another, takes a moment.
constexpr std::chrono::milliseconds withoutWindowManager = 10s;

constexpr int failure = 1;

X11Connection* guarded = nullptr;
QtMessageHandler ordinaryHandler = nullptr;

[[noreturn]] void serverHasGone() {
  printError("the X server has gone");
  // Nothing can be put in order without it: the toolkit would only stumble over its own broken connection. Settings
  // are on the disk already.
  _exit(failure);
}

bool serverAnswers(X11Connection& connection) {
  const XcbPointer<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection.raw(), xcb_get_input_focus(connection.raw()), nullptr));
  return reply != nullptr;
}

/// The toolkit, too, ends the process when its connection breaks. Before it does, it warns, and so the message and the
/// way to end are the same whichever connection is found broken first.
void handleToolkitMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtWarningMsg && guarded != nullptr && !serverAnswers(*guarded)) {
    serverHasGone();
  }
  ordinaryHandler(type, context, message);
}

}  // namespace

bool waitForWindowManager(X11Connection& connection, std::chrono::milliseconds limit) {
  constexpr std::chrono::milliseconds pause = 50ms;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!findWindowManager(connection)) {
    if (connection.isLost() || std::chrono::steady_clock::now() >= deadline) {
      return false;
    }
    poll(nullptr, 0, static_cast<int>(pause.count()));
  }
  return true;
}

SessionGuard::SessionGuard(X11Connection& connection, WindowManagerWatch& windowManager)
    : windowManager_(windowManager) {
  patience_.setSingleShot(true);
  patience_.callOnTimeout([] {
    printError("the window manager has gone, and no other has come");
    QCoreApplication::exit(failure);
  });
  loss_ = connection.observeLoss(serverHasGone);
  windowManagerChanges_ = windowManager.observe([this] { windowManagerChanged(); });
  guarded = &connection;
  ordinaryHandler = qInstallMessageHandler(handleToolkitMessage);
}

SessionGuard::~SessionGuard() {
  qInstallMessageHandler(ordinaryHandler);
  guarded = nullptr;
}

void SessionGuard::windowManagerChanged() {
  if (windowManager_.current()) {
    patience_.stop();
  } else if (!patience_.isActive()) {
    patience_.start(withoutWindowManager);
  }
}

}  // namespace roomlattice::platform::x11
