#pragma once

#include "platform/Dispatcher.h"

#include <QElapsedTimer>
#include <QTimer>
#include <chrono>
#include <functional>

namespace roomlattice::platform::x11 {

/// An opacity that is set or moves to a value.
class AlphaAnimation {
 public:
  /// `changed` is called on every step of the value.
  AlphaAnimation(double value, std::function<void()> changed);

  /// The value that was set, or that a move has reached by now.
  double value() const;

  /// Sets the value and ends a running move, whose completion is then not called.
  void set(double value);

  enum class Steps {
    /// As many as the eye can use, evenly spaced.
    Many,
    /// One, at the end. The value passes through those between as well, but nobody is woken for them.
    One,
  };

  /// Moves to `target`, in place of a running move. `completion` is called afterwards, never from within this call; it
  /// may own what owns this object. A move that is under way when the program ends goes with its completion.
  void moveTo(double target, Duration duration, Steps steps, std::function<void()> completion);

  /// Lets moves that are asked for from now on wait, with the value where it is, until they are released.
  void hold() { isHeld_ = true; }
  void release();

 private:
  void run();
  void step();
  void assign(double value);

  /// Ends a running move and hands over its completion.
  std::function<void()> end();

  // As last told. A move may be further on than its steps where nobody was waiting for them.
  double value_;
  std::function<void()> changed_;
  std::function<void()> completion_;
  bool isHeld_ = false;
  bool isWaiting_ = false;
  // Whether the timer runs, said where the value is: it is asked for of all labels twice a second.
  bool isMoving_ = false;
  // Of the move that runs or waits.
  double start_ = 0.0;
  double target_ = 0.0;
  std::chrono::milliseconds duration_{0};
  QElapsedTimer sinceStart_;
  QTimer steps_;
};

}  // namespace roomlattice::platform::x11
