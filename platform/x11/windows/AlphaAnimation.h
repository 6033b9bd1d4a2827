#pragma once

#include "platform/Dispatcher.h"

#include <QVariantAnimation>
#include <functional>

namespace roomlattice::platform::x11 {

/// An opacity that is set or moves to a value in the toolkit's own steps.
class AlphaAnimation {
 public:
  /// `changed` is called on every change of the value.
  AlphaAnimation(double value, std::function<void()> changed);
  ~AlphaAnimation();

  double value() const { return value_; }

  /// Sets the value and ends a running move, whose completion is then not called.
  void set(double value);

  /// Moves to `target`, in place of a running move. `completion` is called afterwards, never from within this call; it
  /// may own what owns this object.
  void moveTo(double target, Duration duration, std::function<void()> completion);

 private:
  void assign(double value);

  /// Ends a running move and hands over its completion.
  std::function<void()> end();

  double value_;
  std::function<void()> changed_;
  std::function<void()> completion_;
  QVariantAnimation animation_;
};

}  // namespace roomlattice::platform::x11
