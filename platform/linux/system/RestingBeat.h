#pragma once

#include "platform/Dispatcher.h"

#include <QBasicTimer>
#include <QObject>
#include <chrono>

namespace roomlattice::platform::linux {

/// Calls a task once `first` has passed and then every `period`, as long as something happens: after each call it rests
/// until the Qt application delivers an event to any object of the main thread, and then goes on at the old beat. So it
/// wakes nobody while nothing happens. Two of them keep each other awake, as their calls are events, too.
class RestingBeat final : public QObject {
 public:
  /// Made and ended on the main thread, also from within a call. Missed calls are not made up.
  RestingBeat(Duration first, Duration period, Dispatcher::Task task, QObject* owner);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  using Clock = std::chrono::steady_clock;

  void start();

  Clock::time_point next_;
  Duration period_;
  Dispatcher::Task task_;
  QBasicTimer timer_;
};

}  // namespace roomlattice::platform::linux
