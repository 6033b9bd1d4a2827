#include "platform/linux/system/RestingBeat.h"

#include <QCoreApplication>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::linux {

RestingBeat::RestingBeat(Duration first, Duration period, Dispatcher::Task task, QObject* owner)
    : QObject(owner),
      next_(Clock::now() + std::max(first, Duration::zero())),
      period_(std::max(period, Duration(1))),
      task_(std::move(task)) {
  start();
}

bool RestingBeat::eventFilter(QObject*, QEvent*) {
  QCoreApplication::instance()->removeEventFilter(this);
  start();
  return false;
}

void RestingBeat::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) {
    return;
  }
  timer_.stop();
  // Before the call, which may deliver events itself.
  QCoreApplication::instance()->installEventFilter(this);
  // A copy, as the task may end this object.
  const Dispatcher::Task task = task_;
  task();
}

void RestingBeat::start() {
  const Duration late = Clock::now() - next_;
  if (late > Duration::zero()) {
    next_ += (late / period_ + 1) * period_;
  }
  const auto delay = std::chrono::ceil<std::chrono::milliseconds>(next_ - Clock::now());
  timer_.start(static_cast<int>(std::max(delay, std::chrono::milliseconds(0)).count()), Qt::PreciseTimer, this);
}

}  // namespace roomlattice::platform::linux
