#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <utility>

namespace roomlattice::platform::linux {

/// Does something once, a while after each start, from the event loop of the Qt application.
class OneShotTimer {
 public:
  explicit OneShotTimer(std::function<void()> action) {
    timer_.setSingleShot(true);
    timer_.callOnTimeout(std::move(action));
  }

  /// In place of the start before, if the action has not come yet. Without a delay it comes on the next turn.
  void start(std::chrono::milliseconds delay = std::chrono::milliseconds(0)) { timer_.start(delay); }
  void stop() { timer_.stop(); }
  bool isRunning() const { return timer_.isActive(); }

 private:
  QTimer timer_;
};

}  // namespace roomlattice::platform::linux
