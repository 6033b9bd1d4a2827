#include "benchmarks/desktop/SwitchMeter.h"
#include "support/Fatal.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <iterator>
#include <span>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace roomlattice::benchmarks {
namespace {

using namespace std::chrono_literals;

constexpr int pictureCount = 60;
constexpr int fadeCount = 10;
constexpr int hundred = 100;
constexpr auto startLimit = 20s;
constexpr auto tourLimit = 120s;
constexpr auto rest = 1000ms;
constexpr auto idleTime = 10s;
constexpr auto idleUnit = 30s;

// So slow that each fade comes to its end, and so fast that none does.
struct Pace {
  const char* name;
  std::chrono::milliseconds interval;
  int switches;
};
constexpr std::array paces{Pace{"slow", 650ms, 20}, Pace{"quick", 100ms, 50}};

/// A program that is measured, from its start to its end.
class MeasuredProgram {
 public:
  explicit MeasuredProgram(std::span<char*> command) : process_(fork()) {
    if (process_ == 0) {
      const std::vector<char*> words(command.begin(), command.end());
      std::vector<char*> arguments = words;
      arguments.push_back(nullptr);
      const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
      for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
      }
      execvp(arguments.front(), arguments.data());
      _exit(127);
    }
  }
  ~MeasuredProgram() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  MeasuredProgram(const MeasuredProgram&) = delete;
  MeasuredProgram& operator=(const MeasuredProgram&) = delete;

  pid_t process() const { return process_; }

 private:
  pid_t process_;
};

double inMilliseconds(std::chrono::nanoseconds time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

void print(const std::string& figure, double value) {
  std::printf("%s %.2f\n", figure.c_str(), value);
  std::fflush(stdout);
}

/// In milliseconds for a hundred switches.
void measureCost(SwitchMeter& meter, const ProcessFigures& program, const ProcessFigures& server) {
  for (const Pace& pace : paces) {
    const SwitchMeter::Cost cost = meter.cost(program, server, pace.switches, pace.interval);
    print(std::string("own_") + pace.name, inMilliseconds(cost.own) * hundred / pace.switches);
    print(std::string("server_") + pace.name, inMilliseconds(cost.server) * hundred / pace.switches);
  }
}

void measurePictures(SwitchMeter& meter, xcb_window_t window) {
  const SwitchMeter::Pictures pictures = meter.pictures(window, pictureCount);
  print("picture_median", quantile(pictures.milliseconds, 0.5));
  print("picture_p95", quantile(pictures.milliseconds, 0.95));
  print("drawings", pictures.drawings);
  print("missed", static_cast<double>(pictures.missed));
}

/// For `idleUnit`.
void measureIdle(const ProcessFigures& program) {
  std::this_thread::sleep_for(1s);
  const auto time = program.processorTime();
  const long wakeUps = program.wakeUps();
  std::this_thread::sleep_for(idleTime);
  constexpr auto scale = static_cast<double>(idleUnit / idleTime);
  print("idle_ms", inMilliseconds(program.processorTime() - time) * scale);
  print("idle_wakeups", static_cast<double>(program.wakeUps() - wakeUps) * scale);
}

void waitForTour(DesktopScreen& screen) {
  const auto isUnderWay = [&screen] { return screen.hasOverlayEverywhere(); };
  if (!screen.waitUntil(startLimit, isUnderWay) || !screen.waitUntil(tourLimit, std::not_fn(isUnderWay))) {
    fatal("the program makes no tour, or one without an end");
  }
}

void measureProgram(DesktopScreen& screen, const ProcessFigures& server, const std::string& what,
                    std::span<char*> command) {
  const auto wants = [&](char part) { return what.find(part) != std::string::npos; };
  const auto start = Clock::now();
  const MeasuredProgram program(command);
  std::optional<xcb_window_t> item;
  if (!screen.waitUntil(startLimit, [&] { return (item = screen.managedWindow("DOCK")).has_value(); })) {
    fatal("the program shows no window of the type dock");
  }
  print("start", inMilliseconds(Clock::now() - start));
  if (wants('t')) {
    waitForTour(screen);
  }
  screen.waitForRest(rest);
  const ProcessFigures figures(program.process());
  SwitchMeter meter(screen);
  meter.visitAll();
  if (wants('p')) {
    measurePictures(meter, *item);
  }
  if (wants('c')) {
    measureCost(meter, figures, server);
  }
  if (wants('f')) {
    const SwitchMeter::Fade fade = meter.fade(program.process(), fadeCount);
    print("fade_rate", fade.stepsPerSecond);
    print("fade_unevenness", fade.unevenness);
  }
  if (wants('m')) {
    print("memory_kib", static_cast<double>(figures.memory()));
    print("server_memory_kib", static_cast<double>(server.memory()));
    print("server_pixmaps_kib", static_cast<double>(screen.pixmapBytes(*item)) / 1024);
  }
  if (wants('i')) {
    measureIdle(figures);
  }
}

int run(std::span<char*> arguments) {
  if (arguments.size() < 3) {
    std::fputs(
        "Usage: roomlattice_desktop_meter SERVER_PROCESS PARTS [COMMAND...]\n"
        "PARTS are letters: t first waits for a tour of all desktops, p pictures, c cost of switches, f fades, m "
        "memory, i idling.\n"
        "Without a COMMAND, what switches cost the server with nobody there.\n",
        stderr);
    return EXIT_FAILURE;
  }
  DesktopScreen screen;
  const ProcessFigures server(static_cast<pid_t>(std::stol(arguments[1])));
  if (arguments.size() > 3) {
    measureProgram(screen, server, arguments[2], arguments.subspan(3));
  } else {
    SwitchMeter meter(screen);
    measureCost(meter, ProcessFigures(getpid()), server);
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace roomlattice::benchmarks

int main(int argc, char** argv) {
  return roomlattice::benchmarks::run(std::span(argv, static_cast<std::size_t>(argc)));
}
