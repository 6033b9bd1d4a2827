#include "tests/x11/session/SessionBase.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "tests/linux/session/TextFile.h"
#include "tests/linux/session/Wait.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::x11::X11Connection;

void require(bool condition, const std::string& message) {
  if (!condition) {
    throw std::runtime_error(message);
  }
}

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

SessionBase::SessionBase(const SessionOptions& options) : options_(options) {
  makeFolders();
  const Environment folders(variables());
  bus_ = std::make_unique<BusDaemon>(folder() / "bus");
  const Environment bus(variables());
  server_ = std::make_unique<X11Server>(options_, folder());
  const Environment display(variables());
  connection_ = X11Connection::open(server_->display());
  if (options_.windowManager) {
    startWindowManager(*options_.windowManager);
  }
  state_ = DesktopState::of(*connection_);
  desktops_ = desktopsOfKWin();
  files_ = files();
}

SessionBase::~SessionBase() {
  windowManager_.reset();
  server_.reset();
  bus_->stop();
  // What the bus had started notices by itself, and saves its settings before it ends.
  waitFor([this] { return !anyProcessLivesIn(folder()); });
}

void SessionBase::makeFolders() {
  const std::filesystem::path run = folder() / "run";
  const std::filesystem::path busFolder = folder() / "bus";
  for (const auto& path : {run, busFolder, configFolder()}) {
    std::filesystem::create_directories(path);
  }
  std::filesystem::permissions(run, std::filesystem::perms::owner_all);
  std::error_code noSuchService;
  std::filesystem::copy_file("/usr/share/dbus-1/services/org.xfce.Xfconf.service",
                             busFolder / "org.xfce.Xfconf.service", noSuchService);
}

Environment::Variables SessionBase::variables() const {
  Environment::Variables variables = {
      {"HOME", home().string()},
      {"XDG_RUNTIME_DIR", (folder() / "run").string()},
      {"XDG_CONFIG_HOME", configFolder().string()},
      {"XDG_DATA_HOME", (home() / ".local" / "share").string()},
      {"XDG_STATE_HOME", (home() / ".local" / "state").string()},
      {"XDG_CACHE_HOME", (home() / ".cache").string()},
      // Settings of desktops that keep them in a daemon otherwise.
      {"GSETTINGS_BACKEND", "memory"},
  };
  for (const char* name : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "XAUTHORITY",
                           "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "SESSION_MANAGER"}) {
    variables[name] = std::nullopt;
  }
  if (bus_ != nullptr) {
    variables.merge(bus_->variables());
  }
  if (server_ != nullptr) {
    variables["DISPLAY"] = server_->display();
  }
  return variables;
}

void SessionBase::startWindowManager(WindowManagerKind kind) {
  writeDesktopCount(kind);
  const std::unique_ptr<ChildProcess> former = std::move(windowManager_);
  windowManager_ = std::make_unique<ChildProcess>(commandOf(kind));
  managedBy_ = kind;
  if (former != nullptr) {
    require(former->waitForEnd().has_value(), "the former window manager did not give way");
  }
  const bool ready = waitFor([this] { return isManaged() && currentDesktop() && desktopCount(); });
  require(ready, "the window manager did not start: " + windowManager_->errorOutput());
  if (obeysDesktopCount(kind)) {
    // It may still drop what it is asked for. Once the number has changed, it has begun to serve requests.
    setDesktopCount(options_.desktops + 1);
    setDesktopCount(options_.desktops);
  } else if (kind == WindowManagerKind::Bspwm) {
    require(waitFor([this] { return desktopCount() == options_.desktops; }),
            "the window manager's script does not run");
  } else if (kind == WindowManagerKind::KWin) {
    // It manages windows before it tells of its desktops, and the program takes EWMH's word after a while.
    require(waitFor([this] { return desktopsOfKWin().find("test-desktop-1") != std::string::npos; }),
            "KWin does not tell of its desktops");
  }
}

void SessionBase::stopWindowManager() {
  windowManager_.reset();
  managedBy_.reset();
  require(waitFor([this] { return !isManaged(); }), "the window manager's traces stay");
}

void SessionBase::setDesktopCount(int count) {
  const bool changed = waitFor([this, count] {
    connection_->sendToRoot(connection_->root(), connection_->ewmh()->_NET_NUMBER_OF_DESKTOPS,
                            {static_cast<std::uint32_t>(count), 0, 0, 0, 0});
    connection_->flush();
    return waitFor([this, count] { return desktopCount() == count; }, 200ms);
  });
  require(changed, "the number of desktops stays another");
}

std::string SessionBase::desktopsOfKWin() const {
  if (managedBy_ != WindowManagerKind::KWin) {
    return {};
  }
  ChildProcess question({"dbus-send", "--print-reply", "--bus=" + bus_->address(), "--dest=org.kde.KWin",
                         "/VirtualDesktopManager", "org.freedesktop.DBus.Properties.Get",
                         "string:org.kde.KWin.VirtualDesktopManager", "string:desktops"});
  question.waitForEnd();
  const std::string answer = question.output();
  // Its first line tells of the message.
  return answer.substr(std::min(answer.find('\n'), answer.size()));
}

bool SessionBase::isManaged() {
  return platform::x11::findWindowManager(*connection_).has_value();
}

std::optional<int> SessionBase::rootNumber(const char* property) {
  const auto number =
      platform::x11::readNumber(*connection_, connection_->root(), connection_->atom(property), XCB_ATOM_CARDINAL);
  return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

std::optional<xcb_window_t> SessionBase::activeWindow() {
  return platform::x11::readNumber(*connection_, connection_->root(), connection_->ewmh()->_NET_ACTIVE_WINDOW,
                                   XCB_ATOM_WINDOW);
}

bool SessionBase::renew() {
  const bool runs = server_->process().isRunning() && (windowManager_ == nullptr || windowManager_->isRunning());
  // Its desktops would be others with other identifiers.
  if (!runs || desktopsOfKWin() != desktops_) {
    return false;
  }
  for (const std::filesystem::path& path : files()) {
    if (!files_.contains(path)) {
      std::error_code mayBeGoneAlready;
      std::filesystem::remove_all(path, mayBeGoneAlready);
    }
  }
  state_.putBackOn(*connection_);
  return waitFor([this] { return DesktopState::of(*connection_) == state_; }, 2s);
}

/// Also what the window manager has written, which it does without.
std::set<std::filesystem::path> SessionBase::files() const {
  std::set<std::filesystem::path> found;
  for (const std::filesystem::path& top : {home(), folder() / "run"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
      found.insert(entry.path());
    }
  }
  return found;
}

void SessionBase::writeDesktopCount(WindowManagerKind kind) const {
  if (kind == WindowManagerKind::KWin) {
    std::string text = "[Desktops]\nNumber=" + std::to_string(options_.desktops) + "\nRows=1\n";
    for (int number = 1; number <= options_.desktops; ++number) {
      text += "Id_" + std::to_string(number) + "=test-desktop-" + std::to_string(number) + "\n";
    }
    writeText(configFolder() / "kwinrc", text);
  } else if (kind == WindowManagerKind::Openbox) {
    // It tells of each switch in a window that stays for a while.
    const std::string usual = textOf("/etc/xdg/openbox/rc.xml");
    writeText(configFolder() / "openbox" / "rc.xml",
              replaceAll(usual, "<popupTime>875</popupTime>", "<popupTime>0</popupTime>"));
  } else if (kind == WindowManagerKind::Fluxbox) {
    writeText(home() / ".fluxbox" / "overlay", "background: none\n");
  } else if (kind == WindowManagerKind::I3) {
    // Without one it would ask the user.
    writeText(configFolder() / "i3" / "config", "font pango:DejaVu Sans 8\n");
  } else if (kind == WindowManagerKind::Bspwm) {
    writeBspwmScript();
  }
}

void SessionBase::writeBspwmScript() const {
  std::string text = "#!/bin/sh\nbspc monitor -d";
  for (int number = 1; number <= options_.desktops; ++number) {
    text += " " + std::to_string(number);
  }
  const std::filesystem::path script = configFolder() / "bspwm" / "bspwmrc";
  writeText(script, text + "\n");
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
}
}  // namespace roomlattice::tests
