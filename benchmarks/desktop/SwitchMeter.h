#pragma once

#include "benchmarks/desktop/DesktopScreen.h"
#include "benchmarks/desktop/ProcessFigures.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace roomlattice::benchmarks {

/// The value that stands at that fraction of the sorted list; 0 for an empty one.
double quantile(std::vector<double> values, double fraction);

/// Switches to desktops by chance, always the same ones, and measures what follows.
class SwitchMeter {
 public:
  explicit SwitchMeter(DesktopScreen& screen) : screen_(screen) {}

  struct Pictures {
    std::vector<double> milliseconds;  // from the request to the last drawing that follows it soon
    double drawings = 0.0;             // for each switch
    std::size_t missed = 0;            // switches that were followed by none
  };

  /// When the window shows the new desktop.
  Pictures pictures(xcb_window_t window, int switches);

  /// Has each desktop in front once, so that whatever is kept for the next time is there then.
  void visitAll();

  struct Cost {
    std::chrono::nanoseconds own{0};
    std::chrono::nanoseconds server{0};
  };

  /// What so many switches, one each `pace`, cost the two processes.
  Cost cost(const ProcessFigures& program, const ProcessFigures& server, int switches, std::chrono::milliseconds pace);

  struct Fade {
    double stepsPerSecond = 0.0;
    double unevenness = 0.0;  // how far 95 in 100 intervals at most are from the usual one, in ms
    std::size_t steps = 0;
  };

  /// How the opacity of the windows of that process changes after switches, by the server's clock.
  Fade fade(pid_t process, int switches);

 private:
  std::uint32_t nextDesktop();

  DesktopScreen& screen_;
  std::uint32_t chance_ = 1;
};

}  // namespace roomlattice::benchmarks
