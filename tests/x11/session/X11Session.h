#pragma once

#include "tests/linux/session/Environment.h"
#include "tests/linux/session/Wait.h"
#include "tests/x11/session/SessionBase.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// A desktop session for a test: an X server, a message bus, folders for settings, and the window manager of choice,
/// ready to use, and as if they were new. The process's environment points into it as long as it exists. Nothing stays
/// behind.
class X11Session {
 public:
  explicit X11Session(const SessionOptions& options = {});
  ~X11Session();
  X11Session(const X11Session&) = delete;
  X11Session& operator=(const X11Session&) = delete;

  const std::string& display() const { return base_->server().display(); }

  /// Where the driver of the server's touchpad listens.
  std::filesystem::path touchpadSocket() const { return base_->folder() / "touchpad"; }
  std::filesystem::path home() const { return base_->home(); }
  std::filesystem::path configFolder() const { return base_->configFolder(); }

  /// Starts it, in place of the one that runs if there is one, and waits until it serves the desktops.
  void startWindowManager(WindowManagerKind kind);

  /// Kills the window manager and waits until its traces are gone.
  void stopWindowManager();

  ChildProcess* windowManager();

  /// Sends the server a signal that ends it, and waits for its end.
  void endServer(int signal);
  void signalServer(int signal);
  void stopBus();
  void signalBus(int signal);

  /// The test changes the monitors, which are not put back.
  void changesMonitors() { isForLater_ = false; }

  /// Asks the window manager until it has that many desktops.
  void setDesktopCount(int count) { base_->setDesktopCount(count); }

  /// The session bus, started with the session.
  const std::string& busAddress() const { return base_->bus().address(); }

  /// Runs a program of the session to its end and gives what it wrote to standard output.
  std::string run(const std::vector<std::string>& arguments) { return outputOf(arguments); }

  /// What KWin tells of its desktops over the bus, in the words of dbus-send; empty where it does not.
  std::string desktopsOfKWin() const { return base_->desktopsOfKWin(); }

  /// The number of desktops and the current one, as the window manager tells.
  std::optional<int> desktopCount() { return base_->desktopCount(); }
  std::optional<int> currentDesktop() { return base_->currentDesktop(); }

  /// The window that has the keyboard, as the window manager tells.
  std::optional<xcb_window_t> activeWindow() { return base_->activeWindow(); }

 private:
  std::unique_ptr<SessionBase> base_;
  Environment environment_;
  // Whether another test may have what this one stands on.
  bool isForLater_;
};

}  // namespace roomlattice::tests
