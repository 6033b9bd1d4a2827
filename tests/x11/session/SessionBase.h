#pragma once

#include "platform/x11/connection/X11Connection.h"
#include "tests/linux/session/BusDaemon.h"
#include "tests/linux/session/ChildProcess.h"
#include "tests/linux/session/Environment.h"
#include "tests/x11/session/DesktopState.h"
#include "tests/x11/session/SessionOptions.h"
#include "tests/x11/session/X11Server.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace roomlattice::tests {

/// What a session stands on: an X server, a message bus, folders for settings, and the window manager of choice, ready
/// to use. Nothing stays behind.
class SessionBase {
 public:
  explicit SessionBase(const SessionOptions& options);
  ~SessionBase();
  SessionBase(const SessionBase&) = delete;
  SessionBase& operator=(const SessionBase&) = delete;

  /// Lead the programs of the session here.
  Environment::Variables variables() const;

  const SessionOptions& options() const { return options_; }
  const std::filesystem::path& folder() const { return folder_.path(); }
  std::filesystem::path home() const { return folder() / "home"; }
  std::filesystem::path configFolder() const { return home() / ".config"; }

  X11Server& server() { return *server_; }
  BusDaemon& bus() { return *bus_; }
  ChildProcess* windowManager() { return windowManager_.get(); }

  /// In the place of the one that runs if there is one. Waits until it serves the desktops.
  void startWindowManager(WindowManagerKind kind);

  /// Kills the window manager and waits until its traces are gone.
  void stopWindowManager();

  /// Asks the window manager until it has that many desktops.
  void setDesktopCount(int count);

  /// What KWin tells of its desktops over the bus, in the words of dbus-send; empty where it does not.
  std::string desktopsOfKWin() const;

  std::optional<int> desktopCount() { return rootNumber("_NET_NUMBER_OF_DESKTOPS"); }
  std::optional<int> currentDesktop() { return rootNumber("_NET_CURRENT_DESKTOP"); }

  /// The window that has the keyboard.
  std::optional<xcb_window_t> activeWindow();

  /// Puts back what the clients that have gone have left behind; false when it is not as it was when it was new.
  bool renew();

 private:
  void makeFolders();
  void writeDesktopCount(WindowManagerKind kind) const;
  void writeBspwmScript() const;
  bool isManaged();
  std::optional<int> rootNumber(const char* property);
  std::set<std::filesystem::path> files() const;

  SessionOptions options_;
  TemporaryFolder folder_;
  std::unique_ptr<BusDaemon> bus_;
  std::unique_ptr<X11Server> server_;
  std::unique_ptr<platform::x11::X11Connection> connection_;
  std::unique_ptr<ChildProcess> windowManager_;
  std::optional<WindowManagerKind> managedBy_;
  // When it was new.
  DesktopState state_;
  std::string desktops_;
  std::set<std::filesystem::path> files_;
};

}  // namespace roomlattice::tests
