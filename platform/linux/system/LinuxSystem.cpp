#include "platform/linux/system/LinuxSystem.h"

#include "platform/linux/system/CommandLine.h"
#include "platform/linux/system/Executable.h"
#include "support/LogTool.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStandardPaths>
#include <chrono>
#include <filesystem>
#include <sys/prctl.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// In nanoseconds; the kernel takes the least it knows for 1.
constexpr unsigned long leastTimerSlack = 1;

// Of all that the program runs nothing takes nearly as long.
constexpr std::chrono::seconds childLimit{60};

std::string quotedForShell(const std::string& word) {
  std::string quoted = "'";
  for (const char character : word) {
    quoted += character == '\'' ? "'\\''" : std::string(1, character);
  }
  return quoted + "'";
}

/// What a user types to run this program: its name where a shell finds it by that.
std::string typedProgram() {
  constexpr const char* name = "roomlattice";
  std::error_code error;
  const std::filesystem::path own = pathOfExecutable();
  const QString found = QStandardPaths::findExecutable(QString::fromLatin1(name));
  if (own.empty() || (!found.isEmpty() && std::filesystem::equivalent(found.toStdString(), own, error))) {
    return name;
  }
  return quotedForShell(own.string());
}

}  // namespace

LogQuery orOwnLog(LogQuery tool) {
  std::error_code error;
  if (std::filesystem::exists(tool.executable, error)) {
    return tool;
  }
  return {
      .executable = ownExecutable, .arguments = {recentLogOption}, .command = typedProgram() + " " + recentLogOption};
}

LinuxSystem::LinuxSystem(SystemLog log) : log_(std::move(log)) {
  // Timers come as exactly as the kernel can: the steps of gestures are timed by them.
  prctl(PR_SET_TIMERSLACK, leastTimerSlack, 0, 0, 0);
}

void LinuxSystem::log(const std::string& line) {
  log_.write(line);
}

std::variant<ProcessOutput, LaunchError> LinuxSystem::run(const std::string& path,
                                                          const std::vector<std::string>& arguments) {
  finishLog();  // which it may read
  auto result = children_.run(path, arguments, {.limit = childLimit});
  if (auto* ended = std::get_if<ChildResult>(&result)) {
    return ProcessOutput{std::move(ended->bytes)};
  }
  return std::get<LaunchError>(result);
}

LogQuery LinuxSystem::recentLog() const {
  return orOwnLog(recentLogByTool());
}

void LinuxSystem::setPasteboardString(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

Registration LinuxSystem::beginActivity(ActivityKind, const std::string&) {
  // A Linux desktop throttles no process that has no windows in sight, so there is nothing to ask for.
  return Registration([] {});
}

}  // namespace roomlattice::platform::linux
