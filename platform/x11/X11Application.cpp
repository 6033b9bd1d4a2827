#include "platform/x11/X11Application.h"

#include "platform/x11/AccessibleApplication.h"

#include <QWidget>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

bool takesKeyboard(const QWidget& window) {
  return window.isVisible() && window.windowType() == Qt::Window && !window.testAttribute(Qt::WA_ShowWithoutActivating);
}

}  // namespace

X11Application::X11Application(X11Connection& connection, int& argc, char** argv)
    : connection_(connection), application_(argc, argv) {
  showOpenMenusToAssistiveTechnology();
  application_.installNativeEventFilter(&oversizeFilter_);
  connection_.attachToEventLoop();
}

void X11Application::setActivationPolicy(ActivationPolicy) {
  // Labels and the status item keep themselves out of taskbars, where the preferences may be found. What is left is
  // not to end with the last ordinary window.
  QApplication::setQuitOnLastWindowClosed(false);
}

int X11Application::run(std::function<void()> didFinishLaunching) {
  if (state_ == State::Terminated) {
    return 0;
  }
  state_ = State::Running;
  launchLimit_.emplace(launchTime, launchIsStuck);
  const auto launch = [this, launch = std::move(didFinishLaunching)] {
    launch();
    launchLimit_.reset();
  };
  QMetaObject::invokeMethod(&application_, launch, Qt::QueuedConnection);
  return QApplication::exec();
}

void X11Application::activateIgnoringOtherApps() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (takesKeyboard(*window)) {
      window->raise();
      // No prevention of focus stealing holds this back.
      connection_.sendToRoot(static_cast<xcb_window_t>(window->winId()), connection_.ewmh()->_NET_ACTIVE_WINDOW,
                             {sourceIsPager, XCB_CURRENT_TIME, 0, 0, 0});
    }
  }
}

void X11Application::terminate() {
  if (state_ == State::Running) {
    QApplication::exit(0);
  }
  state_ = State::Terminated;
}

}  // namespace roomlattice::platform::x11
