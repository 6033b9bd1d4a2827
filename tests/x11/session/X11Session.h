#pragma once

#include "tests/linux/session/BusDaemon.h"
#include "tests/linux/session/ChildProcess.h"
#include "tests/linux/session/Environment.h"
#include "tests/linux/session/Wait.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// All but the first three have their ways with some windows; they are not among those that all tests run under. I3
/// makes and drops desktops itself, whatever number is asked for.
enum class WindowManagerKind { Openbox, Xfwm4, KWin, Fluxbox, I3, Metacity, Marco, Bspwm };

std::ostream& operator<<(std::ostream& stream, WindowManagerKind kind);

enum class ServerKind { Xvfb, XorgWithTouchpad };

/// The X server of choice cannot be started here.
class ServerNotStarted : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct SessionOptions {
  /// None leaves the screen without one.
  std::optional<WindowManagerKind> windowManager = WindowManagerKind::Openbox;
  int desktops = 4;
  ServerKind server = ServerKind::Xvfb;
  std::string screen = "1280x800x24";
  std::vector<std::string> serverArguments;
  /// The number of the display; otherwise the first that is free, which another session may get once this one's server
  /// has gone.
  std::optional<int> display;
};

/// A desktop session of its own for a test: an X server, a message bus, folders for settings, and the window manager of
/// choice, ready to use. The process's environment points into it as long as it exists. Nothing stays behind.
class X11Session {
 public:
  explicit X11Session(const SessionOptions& options = {});
  ~X11Session();

  const std::string& display() const { return display_; }

  /// Where the driver of the server's touchpad listens.
  std::filesystem::path touchpadSocket() const { return folder_.path() / "touchpad"; }
  std::filesystem::path home() const { return folder_.path() / "home"; }
  std::filesystem::path configFolder() const { return home() / ".config"; }

  /// Starts it, in place of the one that runs if there is one, and waits until it serves the desktops.
  void startWindowManager(WindowManagerKind kind);

  /// Kills the window manager and waits until its traces are gone.
  void stopWindowManager();

  ChildProcess* windowManager() { return windowManager_.get(); }

  /// Sends the server a signal that ends it, and waits for its end.
  void endServer(int signal);
  void signalServer(int signal) { server_->signal(signal); }
  void stopBus();
  void signalBus(int signal) { bus_->signal(signal); }

  /// Asks the window manager until it has that many desktops.
  void setDesktopCount(int count);

  /// The session bus, started with the session.
  const std::string& busAddress() const { return bus_->address(); }

  /// Runs a program of the session to its end and gives what it wrote to standard output.
  std::string run(const std::vector<std::string>& arguments) { return outputOf(arguments); }
  /// What KWin tells of its desktops over the bus, in the words of dbus-send; empty where it does not.
  std::string desktopsOfKWin();

  /// The number of desktops and the current one, as the window manager tells.
  std::optional<int> desktopCount();
  std::optional<int> currentDesktop();

 private:
  void prepareFolders();
  void startServer(const SessionOptions& options);
  std::vector<std::string> serverCommand(const SessionOptions& options, const std::string& announcement) const;
  void writeDesktopCount(WindowManagerKind kind) const;
  void writeBspwmScript() const;
  bool managedBySomebody();
  std::optional<int> rootNumber(const std::string& property);

  int desktops_;
  Environment environment_;
  TemporaryFolder folder_;
  std::string display_;
  std::unique_ptr<ChildProcess> server_;
  std::unique_ptr<BusDaemon> bus_;
  std::unique_ptr<ChildProcess> windowManager_;
};

}  // namespace roomlattice::tests
