#include "platform/x11/X11Platform.h"

#include "platform/NativePlatform.h"
#include "platform/linux/bus/BusAddress.h"
#include "platform/linux/control/ControlNames.h"
#include "platform/linux/system/CommandLine.h"
#include "platform/linux/system/EnvironmentFiles.h"
#include "platform/linux/system/EnvironmentVariable.h"
#include "platform/linux/system/LastResort.h"
#include "platform/linux/system/QtMessages.h"
#include "platform/linux/system/StandardStreams.h"
#include "platform/linux/system/StartLimit.h"
#include "platform/x11/ToolkitEnvironment.h"
#include "platform/x11/connection/AuthorityFile.h"
#include "platform/x11/connection/PanelWait.h"
#include "platform/x11/connection/Properties.h"
#include "platform/x11/connection/SecondStart.h"

#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace roomlattice::platform {
namespace x11 {
namespace {

using namespace std::chrono_literals;
using linux::environmentVariable;

// At the start of a session programs may be started before the window manager is there, and long before a panel, which
// not every session has.
constexpr std::chrono::milliseconds windowManagerStart = 5s;
constexpr std::chrono::milliseconds windowManagerAtLogin = 60s;
constexpr std::chrono::milliseconds panelAtLogin = 15s;

// Generous: machines are slowest when a session starts.
constexpr std::chrono::milliseconds serverAnswer = 60s;

// A bus that works lets anybody in within a few milliseconds.
constexpr std::chrono::milliseconds busAnswer = 1s;

constexpr ExitStatus noDesktop{1};

ExitStatus refuse(const std::string& reason) {
  linux::printError(reason);
  return noDesktop;
}

std::string displayName() {
  return "'" + environmentVariable("DISPLAY").value_or("") + "'";
}

bool isWaylandSession() {
  return environmentVariable("WAYLAND_DISPLAY") || environmentVariable("XDG_SESSION_TYPE") == "wayland";
}

std::chrono::milliseconds windowManagerPatience(linux::Start began) {
  return began == linux::Start::AtLogin ? windowManagerAtLogin : windowManagerStart;
}

std::optional<ExitStatus> findWindowManager(X11Connection& connection, const linux::TerminationSignals& signals,
                                            std::chrono::milliseconds limit) {
  switch (waitForWindowManager(connection, signals, limit)) {
    case WindowManagerWait::Found:
      return std::nullopt;
    case WindowManagerWait::TimedOut:
      return refuse("no window manager that supports EWMH runs on the X11 display " + displayName());
    case WindowManagerWait::ServerLost:
      return refuse("the X server has gone");
    case WindowManagerWait::Terminated:
      break;
  }
  return ExitStatus{EXIT_SUCCESS};
}

/// What makes the X server a desktop.
std::optional<ExitStatus> findSession(X11Connection& connection, const linux::TerminationSignals& signals,
                                      linux::Start began) {
  if (const std::optional<ExitStatus> status = findWindowManager(connection, signals, windowManagerPatience(began))) {
    return status;
  }
  const bool waits = began == linux::Start::AtLogin;
  return waits && waitForPanel(connection, signals, panelAtLogin) == PanelWait::Terminated
             ? std::optional(ExitStatus{EXIT_SUCCESS})
             : std::nullopt;
}

/// at-spi writes it there for programs that find no session bus.
std::string accessibilityBusOf(X11Connection& connection) {
  return readBytes(connection, connection.root(), connection.atom("AT_SPI_BUS"), XCB_ATOM_STRING).value_or("");
}

/// Why the program cannot even try to connect, in words; nothing where it can.
std::optional<std::string> whatIsInTheWay() {
  if (!environmentVariable("DISPLAY")) {
    return isWaylandSession() ? "no X11 display: DISPLAY is not set, and pure Wayland sessions are not supported"
                              : "no X11 display: DISPLAY is not set";
  }
  for (const auto& reason : {linux::lackOfResources, unusableToolkitSetting, unusableAuthorityFile}) {
    if (std::optional<std::string> found = reason()) {
      return found;
    }
  }
  return std::nullopt;
}

std::variant<std::unique_ptr<Platform>, ExitStatus> start(int& argc, char** argv) {
  const linux::Start began = linux::startOf(argc, argv);
  static const linux::TerminationSignals signals;
  if (const std::optional<std::string> reason = whatIsInTheWay()) {
    return refuse(*reason);
  }
  std::optional<linux::StartLimit> limit(std::in_place, serverAnswer + windowManagerPatience(began) + panelAtLogin,
                                         "the X server does not answer");
  std::unique_ptr<X11Connection> connection = X11Connection::open();
  if (connection == nullptr) {
    return refuse("cannot connect to the X11 display " + displayName());
  }
  std::unique_ptr<InstanceLock> lock = InstanceLock::acquire(*connection);
  if (lock == nullptr) {
    return passOnStart(began, environmentVariable("DISPLAY").value_or(""), signals);
  }
  if (const std::optional<ExitStatus> status = findSession(*connection, signals, began)) {
    return *status;
  }
  limit.emplace(launchTime, launchIsStuck);
  // Also where the environment asks the toolkit for another platform: the windows are X windows.
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  static const Registration muteBuses = linux::hideMuteBuses(busAnswer, accessibilityBusOf(*connection));
  linux::redirectQtMessages();
  watchToolkitConnection();
  return std::make_unique<X11Platform>(std::move(connection), std::move(lock), signals, argc, argv);
}

}  // namespace

X11Platform::X11Platform(std::unique_ptr<X11Connection> connection, std::unique_ptr<InstanceLock> lock,
                         const linux::TerminationSignals& signals, int& argc, char** argv)
    : connection_(std::move(connection)),
      lock_(std::move(lock)),
      application_(*connection_, argc, argv),
      system_(linux::SystemLog(linux::SystemLog::standardPath(), linux::Journal::open())),
      defaults_(linux::LinuxDefaults::standardPath(), [this](const std::string& line) { system_.log(line); }),
      sessionBus_(linux::MessageBus::Kind::Session),
      accessibility_(sessionBus_),
      control_(sessionBus_, linux::controlNameOfDisplay(environmentVariable("DISPLAY").value_or("")),
               [this](const std::string& line) { system_.log(line); }),
      systemBus_(linux::MessageBus::Kind::System),
      windowManager_(*connection_),
      guard_(*connection_, *lock_, windowManager_, [this] { finishWriting(); }),
      desktops_(*connection_, sessionBus_, windowManager_, notifications_.workspaceCenter()),
      desktopNames_(desktops_, defaults_, notifications_.defaultCenter()),
      windowServer_(connection_->screenNumber(), desktops_, attachments_),
      screens_(*connection_, notifications_.defaultCenter()),
      appearance_(*connection_, sessionBus_, notifications_.distributedCenter()),
      sleep_(systemBus_, notifications_.workspaceCenter()),
      events_(*connection_, desktops_, screens_),
      userInterface_({*connection_, windowManager_, screens_, appearance_, desktops_, desktopNames_, attachments_,
                      sessionBus_, defaults_, notifications_.defaultCenter()}),
      termination_(signals.observe([this] { application_.terminate(); })) {
  if (auto settings = linux::LinuxDefaults::standardPath()) {
    settingsWatch_.emplace(defaults_, *std::move(settings),
                           [this] { notifications_.defaultCenter().post(notification::defaultsDidChangeElsewhere); });
  }
}

void X11Platform::finishWriting() {
  defaults_.finishWriting();
  system_.finishLog();
}

X11Platform::~X11Platform() {
  // A log tool that never ends must not hold the worker, and with it the end of the program.
  system_.interruptRuns();
}

}  // namespace x11

std::variant<std::unique_ptr<Platform>, ExitStatus> makeNativePlatform(int& argc, char** argv) {
  linux::prepareStandardStreams();
  linux::endWithALineWhereNothingHelps();
  for (const std::string& variable : linux::withholdEndlessFiles()) {
    linux::printError("the environment's " + variable + " names no ordinary file, and is left out");
  }
  if (const std::optional<ExitStatus> status = linux::answerCommandLine(argc, argv)) {
    return *status;
  }
  return x11::start(argc, argv);
}

}  // namespace roomlattice::platform
