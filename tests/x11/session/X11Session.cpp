#include "tests/x11/session/X11Session.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "tests/linux/session/AnnouncementPipe.h"
#include "tests/linux/session/TextFile.h"

#include <csignal>
#include <stdexcept>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;

void require(bool condition, const std::string& message) {
  if (!condition) {
    throw std::runtime_error(message);
  }
}

/// A screen in memory, and a touchpad and a keyboard that hear from a test.
constexpr const char* touchpadServerConfiguration = R"(
Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoEnableDevices" "false"
  Option "AutoAddGPU" "false"
  Option "DontVTSwitch" "true"
EndSection
Section "Device"
  Identifier "memory"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
  Modeline "1280x800" 83.46 1280 1344 1480 1680 800 801 804 828
EndSection
Section "Screen"
  Identifier "screen"
  Device "memory"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1280x800"
    Virtual 1280 800
  EndSubSection
EndSection
Section "InputDevice"
  Identifier "touchpad"
  Driver "inputtest"
  Option "SocketPath" "@FOLDER@/touchpad"
  Option "DeviceType" "PointerGesture"
EndSection
Section "InputDevice"
  Identifier "keyboard"
  Driver "inputtest"
  Option "SocketPath" "@FOLDER@/keyboard"
  Option "DeviceType" "Keyboard"
EndSection
Section "ServerLayout"
  Identifier "layout"
  Screen "screen"
  InputDevice "touchpad" "CorePointer"
  InputDevice "keyboard" "CoreKeyboard"
EndSection
)";

/// By what a process was started with; one of somebody else cannot be looked into, and does not live there.
bool anyProcessLivesIn(const std::filesystem::path& folder) {
  const std::string place = "=" + folder.string();
  std::error_code gone;
  for (const auto& entry : std::filesystem::directory_iterator("/proc", gone)) {
    if (textOf(entry.path() / "environ").find(place) != std::string::npos) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> commandOf(WindowManagerKind kind) {
  switch (kind) {
    case WindowManagerKind::Openbox:
      return {"openbox", "--replace"};
    case WindowManagerKind::Xfwm4:
      return {"xfwm4", "--replace", "--compositor=off"};
    case WindowManagerKind::KWin:
      return {"kwin_x11", "--replace", "--no-kactivities"};
    case WindowManagerKind::Fluxbox:
      return {"fluxbox"};
    case WindowManagerKind::I3:
      return {"i3"};
    case WindowManagerKind::Metacity:
      return {"metacity", "--sm-disable", "--no-composite"};
    case WindowManagerKind::Marco:
      return {"marco", "--sm-disable", "--no-composite"};
    case WindowManagerKind::Bspwm:
      return {"bspwm"};
  }
  throw std::runtime_error("no such window manager");
}

/// Others have a number of their own, or the one in their settings.
bool obeysDesktopCount(WindowManagerKind kind) {
  return kind != WindowManagerKind::KWin && kind != WindowManagerKind::I3 && kind != WindowManagerKind::Bspwm;
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, WindowManagerKind kind) {
  return stream << commandOf(kind).front();
}

X11Session::X11Session(const SessionOptions& options) : desktops_(options.desktops) {
  prepareFolders();
  const std::filesystem::path busFolder = folder_.path() / "bus";
  std::filesystem::create_directories(busFolder);
  std::error_code noSuchService;
  std::filesystem::copy_file("/usr/share/dbus-1/services/org.xfce.Xfconf.service",
                             busFolder / "org.xfce.Xfconf.service", noSuchService);
  bus_ = std::make_unique<BusDaemon>(busFolder);
  startServer(options);
  if (options.windowManager) {
    startWindowManager(*options.windowManager);
  }
}

X11Session::~X11Session() {
  windowManager_.reset();
  server_.reset();
  bus_->stop();
  // What the bus had started notices by itself, and saves its settings before it ends.
  waitFor([this] { return !anyProcessLivesIn(folder_.path()); });
}

void X11Session::prepareFolders() {
  const std::filesystem::path run = folder_.path() / "run";
  std::filesystem::create_directories(run);
  std::filesystem::permissions(run, std::filesystem::perms::owner_all);
  std::filesystem::create_directories(configFolder());
  environment_.set("HOME", home().string());
  environment_.set("XDG_RUNTIME_DIR", run.string());
  environment_.set("XDG_CONFIG_HOME", configFolder().string());
  environment_.set("XDG_DATA_HOME", (home() / ".local" / "share").string());
  environment_.set("XDG_STATE_HOME", (home() / ".local" / "state").string());
  environment_.set("XDG_CACHE_HOME", (home() / ".cache").string());
  // Settings of desktops that keep them in a daemon otherwise.
  environment_.set("GSETTINGS_BACKEND", "memory");
  for (const char* name : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "XAUTHORITY",
                           "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "SESSION_MANAGER"}) {
    environment_.set(name, std::nullopt);
  }
}

void X11Session::startServer(const SessionOptions& options) {
  AnnouncementPipe ready;
  server_ = std::make_unique<ChildProcess>(serverCommand(options, ready.writer()));
  const std::string number = ready.readLine();
  if (number.empty()) {
    server_->waitForEnd();
    throw ServerNotStarted(server_->errorOutput());
  }
  display_ = ":" + number;
  environment_.set("DISPLAY", display_);
}

std::vector<std::string> X11Session::serverCommand(const SessionOptions& options,
                                                   const std::string& announcement) const {
  std::vector<std::string> command;
  if (options.server == ServerKind::XorgWithTouchpad) {
    const std::filesystem::path configuration = folder_.path() / "xorg.conf";
    writeText(configuration, replaceAll(touchpadServerConfiguration, "@FOLDER@", folder_.path().string()));
    command = {"/usr/lib/xorg/Xorg", "-config", configuration.string(), "-logfile", (folder_.path() / "log").string(),
               "-novtswitch",        "-keeptty"};
  } else {
    command = {"Xvfb", "-screen", "0", options.screen};
    // Only KWin draws by it, and it takes half the server's start.
    if (options.windowManager != WindowManagerKind::KWin) {
      command.insert(command.end(), {"-extension", "GLX"});
    }
  }
  if (options.display) {
    command.push_back(":" + std::to_string(*options.display));
  }
  // On a busy machine a key that a tool presses may be held long enough to repeat.
  command.push_back("-r");
  command.insert(command.end(), {"-displayfd", announcement, "-nolisten", "tcp", "-noreset"});
  command.insert(command.end(), options.serverArguments.begin(), options.serverArguments.end());
  return command;
}

void X11Session::startWindowManager(WindowManagerKind kind) {
  writeDesktopCount(kind);
  const std::unique_ptr<ChildProcess> former = std::move(windowManager_);
  windowManager_ = std::make_unique<ChildProcess>(commandOf(kind));
  if (former != nullptr) {
    require(former->waitForEnd().has_value(), "the former window manager did not give way");
  }
  const bool ready = waitFor([this] { return managedBySomebody() && currentDesktop() && desktopCount(); });
  require(ready, "the window manager did not start: " + windowManager_->errorOutput());
  if (obeysDesktopCount(kind)) {
    // It may still drop what it is asked for. Once the number has changed, it has begun to serve requests.
    setDesktopCount(desktops_ + 1);
    setDesktopCount(desktops_);
  } else if (kind == WindowManagerKind::Bspwm) {
    require(waitFor([this] { return desktopCount() == desktops_; }), "the window manager's script does not run");
  } else if (kind == WindowManagerKind::KWin) {
    // It manages windows before it tells of its desktops, and the program takes EWMH's word after a while.
    require(waitFor([this] { return desktopsOfKWin().find("test-desktop-1") != std::string::npos; }),
            "KWin does not tell of its desktops");
  }
}

std::string X11Session::desktopsOfKWin() {
  return run({"dbus-send", "--print-reply", "--session", "--dest=org.kde.KWin", "/VirtualDesktopManager",
              "org.freedesktop.DBus.Properties.Get", "string:org.kde.KWin.VirtualDesktopManager", "string:desktops"});
}

void X11Session::setDesktopCount(int count) {
  using namespace std::chrono_literals;
  const bool changed = waitFor([this, count] {
    run({"wmctrl", "-n", std::to_string(count)});
    return waitFor([this, count] { return desktopCount() == count; }, 200ms);
  });
  require(changed, "the number of desktops stays another");
}

void X11Session::stopWindowManager() {
  windowManager_.reset();
  require(waitFor([this] { return !managedBySomebody(); }), "the window manager's traces stay");
}

void X11Session::endServer(int signal) {
  server_->signal(signal);
  require(server_->waitForEnd().has_value(), "the X server does not end");
}

void X11Session::stopBus() {
  bus_->stop();
}

void X11Session::writeDesktopCount(WindowManagerKind kind) const {
  if (kind == WindowManagerKind::KWin) {
    std::string text = "[Desktops]\nNumber=" + std::to_string(desktops_) + "\nRows=1\n";
    for (int number = 1; number <= desktops_; ++number) {
      text += "Id_" + std::to_string(number) + "=test-desktop-" + std::to_string(number) + "\n";
    }
    writeText(configFolder() / "kwinrc", text);
  } else if (kind == WindowManagerKind::Fluxbox) {
    writeText(home() / ".fluxbox" / "overlay", "background: none\n");
  } else if (kind == WindowManagerKind::I3) {
    // Without one it would ask the user.
    writeText(configFolder() / "i3" / "config", "font pango:DejaVu Sans 8\n");
  } else if (kind == WindowManagerKind::Bspwm) {
    writeBspwmScript();
  }
}

void X11Session::writeBspwmScript() const {
  std::string text = "#!/bin/sh\nbspc monitor -d";
  for (int number = 1; number <= desktops_; ++number) {
    text += " " + std::to_string(number);
  }
  const std::filesystem::path script = configFolder() / "bspwm" / "bspwmrc";
  writeText(script, text + "\n");
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
}

bool X11Session::managedBySomebody() {
  const auto connection = X11Connection::open(display_);
  return connection != nullptr && platform::x11::findWindowManager(*connection).has_value();
}

std::optional<int> X11Session::desktopCount() {
  return rootNumber("_NET_NUMBER_OF_DESKTOPS");
}

std::optional<int> X11Session::currentDesktop() {
  return rootNumber("_NET_CURRENT_DESKTOP");
}

std::optional<int> X11Session::rootNumber(const std::string& property) {
  const auto connection = X11Connection::open(display_);
  if (connection == nullptr) {
    return std::nullopt;
  }
  const auto number =
      platform::x11::readNumber(*connection, connection->root(), connection->atom(property), XCB_ATOM_CARDINAL);
  return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

}  // namespace roomlattice::tests
