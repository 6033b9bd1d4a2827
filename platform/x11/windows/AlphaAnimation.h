#pragma once

#include "platform/Dispatcher.h"
#include "platform/linux/system/OneShotTimer.h"

#include <QElapsedTimer>
#include <QVariantAnimation>
#include <chrono>
#include <functional>

namespace roomlattice::platform::x11 {

/// An opacity that is set or moves to a value.
class AlphaAnimation {
 public:
  /// `changed` is called on every step of the value.
  AlphaAnimation(double value, std::function<void()> changed);
  ~AlphaAnimation();

  /// The value that was set, or that a move has reached.
  double value() const;

  /// Sets the value and ends a running move, whose completion is then not called.
  void set(double value);

  enum class Steps {
    /// As many as the toolkit makes.
    Many,
    /// One, at the end. The value passes through those between as well, but nobody is woken for them.
    One,
  };

  /// Moves to `target`, in place of a running move. `completion` is called afterwards, never from within this call; it
  /// may own what owns this object. A move that is under way when the program ends goes with its completion.
  void moveTo(double target, Duration duration, Steps steps, std::function<void()> completion);

 private:
  void assign(double value);
  void arrive();

  /// Ends a running move and hands over its completion.
  std::function<void()> end();

  double value_;
  std::function<void()> changed_;
  std::function<void()> completion_;
  // Of the move that runs.
  double target_ = 0.0;
  std::chrono::milliseconds duration_{0};
  QElapsedTimer sinceStart_;
  QVariantAnimation animation_;
  linux::OneShotTimer jump_{[this] { arrive(); }};
};

}  // namespace roomlattice::platform::x11
