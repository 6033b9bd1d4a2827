#pragma once

#include "platform/Dispatcher.h"
#include "platform/DockSwipe.h"
#include "platform/NotificationCenter.h"
#include "platform/System.h"
#include "spaces/DockSwipePoster.h"
#include "support/Lifetime.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

namespace roomlattice {

/// A tour of desktops: swipes step by step, waits for each arrival, repeats a swipe that led nowhere once, passes over
/// it then, and gives up after 20 s. Main thread only.
class DesktopTour {
 public:
  using Directions = std::deque<platform::Direction>;

  /// Arrivals are what the workspace's centre reports, whoever switched.
  DesktopTour(DockSwipePoster& swipes, platform::Dispatcher& dispatcher, platform::NotificationCenter& workspace,
              platform::System& system)
      : swipes_(swipes), dispatcher_(dispatcher), workspace_(workspace), system_(system) {}

  /// Called from within start, before the first swipe.
  std::function<void()> onStart = [] {};

  /// Called when a tour has ended, whichever way. Another one may be started from it, whose completion is then called
  /// in place of the ended one's, right after.
  std::function<void()> onEnd = [] {};

  /// Swipes in these directions, the first one before this returns. `completion`, which may be empty, is called once,
  /// after onEnd. A tour that is under way is replaced, and its completion is not called.
  void start(Directions directions, std::function<void()> completion);

  /// The directions that lead from the desktop at `start` of `count` to the last one, to the first one and back.
  static Directions roundTrip(std::size_t count, std::size_t start);

 private:
  struct Run {
    Directions ahead;
    std::function<void()> completion;
    platform::Registration arrivals;
    // The next tour has a limit of its own.
    platform::Registration timeLimit;
    // Counts from 1; deferred work compares it to learn that its step is over.
    int step = 0;
    platform::Direction direction = platform::Direction::Right;
    bool retried = false;
  };

  bool isAt(int step) const { return run_ && run_->step == step; }
  void advance();
  void advanceFrom(int step);
  void swipe();
  void stepTimedOut(int step);
  void retryTimedOut(int step);
  void arrived();
  void gaveUp();
  void end();

  DockSwipePoster& swipes_;
  platform::Dispatcher& dispatcher_;
  platform::NotificationCenter& workspace_;
  platform::System& system_;
  std::optional<Run> run_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
