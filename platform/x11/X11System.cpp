#include "platform/x11/X11System.h"

#include "platform/x11/LogLine.h"

#include <QClipboard>
#include <QGuiApplication>
#include <sys/prctl.h>
#include <unistd.h>

namespace roomlattice::platform::x11 {
namespace {

// In nanoseconds; the kernel takes the least it knows for 1.
constexpr unsigned long leastTimerSlack = 1;

}  // namespace

X11System::X11System() {
  // Timers come as exactly as the kernel can: the steps of gestures are timed by them.
  prctl(PR_SET_TIMERSLACK, leastTimerSlack, 0, 0, 0);
}

void X11System::log(const std::string& line) {
  writeLogLine(STDERR_FILENO, line);
}

std::variant<ProcessOutput, LaunchError> X11System::run(const std::string& path,
                                                        const std::vector<std::string>& arguments) {
  return children_.run(path, arguments);
}

void X11System::setPasteboardString(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

Registration X11System::beginActivity(ActivityKind, const std::string&) {
  // A Linux desktop throttles no process that has no windows in sight, so there is nothing to ask for.
  return Registration([] {});
}

}  // namespace roomlattice::platform::x11
