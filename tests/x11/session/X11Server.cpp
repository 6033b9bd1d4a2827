#include "tests/x11/session/X11Server.h"

#include "tests/linux/session/AnnouncementPipe.h"
#include "tests/linux/session/TextFile.h"

#include <vector>

namespace roomlattice::tests {
namespace {

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

std::vector<std::string> commandFor(const SessionOptions& options, const std::filesystem::path& folder,
                                    const std::string& announcement) {
  std::vector<std::string> command;
  if (options.server == ServerKind::XorgWithTouchpad) {
    const std::filesystem::path configuration = folder / "xorg.conf";
    writeText(configuration, replaceAll(touchpadServerConfiguration, "@FOLDER@", folder.string()));
    command = {"/usr/lib/xorg/Xorg", "-config", configuration.string(), "-logfile", (folder / "log").string(),
               "-novtswitch",        "-keeptty"};
  } else {
    command = {"Xvfb", "-screen", "0", options.screen};
    // Only KWin draws by it, and it takes half the server's start.
    if (options.windowManager != WindowManagerKind::KWin) {
      command.insert(command.end(), {"-extension", "GLX"});
    }
  }
  if (options.display) {
    command.emplace_back(":" + std::to_string(*options.display));
  }
  // On a busy machine a key that a tool presses may be held long enough to repeat.
  command.push_back("-r");
  command.insert(command.end(), {"-displayfd", announcement, "-nolisten", "tcp", "-noreset"});
  command.insert(command.end(), options.serverArguments.begin(), options.serverArguments.end());
  return command;
}

}  // namespace

X11Server::X11Server(const SessionOptions& options, const std::filesystem::path& folder) {
  AnnouncementPipe ready;
  process_ = std::make_unique<ChildProcess>(commandFor(options, folder, ready.writer()));
  const std::string number = ready.readLine();
  if (number.empty()) {
    process_->waitForEnd();
    throw ServerNotStarted(process_->errorOutput());
  }
  display_ = ":" + number;
}

}  // namespace roomlattice::tests
