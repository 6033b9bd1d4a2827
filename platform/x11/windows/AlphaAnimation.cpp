#include "platform/x11/windows/AlphaAnimation.h"

#include <QCoreApplication>
#include <QEasingCurve>
#include <QMetaObject>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr QEasingCurve::Type easing = QEasingCurve::InOutSine;

// Just less often than most screens are drawn, so that no step is drawn by nobody.
constexpr std::chrono::milliseconds stepPeriod(17);

/// On a later turn, whatever has gone by then: the completion may be all that keeps its window. Where the program ends
/// before that turn, it is dropped while what windows stand on is still there.
void callLater(std::function<void()> completion) {
  auto* const turn = new QObject(qApp);
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, turn, &QObject::deleteLater);
  const auto call = [turn, completion = std::move(completion)] {
    turn->deleteLater();
    completion();
  };
  QMetaObject::invokeMethod(turn, call, Qt::QueuedConnection);
}

}  // namespace

AlphaAnimation::AlphaAnimation(double value, std::function<void()> changed)
    : value_(value), changed_(std::move(changed)) {
  steps_.setTimerType(Qt::PreciseTimer);
  steps_.callOnTimeout([this] { step(); });
  // No move arrives after that, and a completion that owns the owner of this object would keep both for good.
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, &steps_, [this] { const auto dropped = end(); });
}

double AlphaAnimation::value() const {
  if (!isMoving_) {
    return value_;
  }
  const double progress =
      std::min(static_cast<double>(sinceStart_.elapsed()) / static_cast<double>(duration_.count()), 1.0);
  return start_ + (target_ - start_) * QEasingCurve(easing).valueForProgress(progress);
}

void AlphaAnimation::set(double value) {
  // Kept to the end of the call, as it may own the owner of this object.
  const std::function<void()> replaced = end();
  assign(value);
}

void AlphaAnimation::moveTo(double target, Duration duration, Steps steps, std::function<void()> completion) {
  const double start = value();
  const std::function<void()> replaced = end();
  if (duration <= Duration::zero()) {
    assign(target);
    callLater(std::move(completion));
    return;
  }
  completion_ = std::move(completion);
  start_ = start;
  target_ = target;
  duration_ = std::chrono::ceil<std::chrono::milliseconds>(duration);
  steps_.setInterval(steps == Steps::One ? duration_ : std::min(duration_, stepPeriod));
  isWaiting_ = isHeld_;
  if (!isWaiting_) {
    run();
  }
}

void AlphaAnimation::release() {
  isHeld_ = false;
  if (std::exchange(isWaiting_, false)) {
    run();
  }
}

void AlphaAnimation::run() {
  isMoving_ = true;
  sinceStart_.start();
  steps_.start();
}

void AlphaAnimation::step() {
  const bool isLast = steps_.intervalAsDuration() == duration_ || sinceStart_.elapsed() >= duration_.count();
  if (!isLast) {
    assign(value());
    return;
  }
  steps_.stop();
  isMoving_ = false;
  assign(target_);
  callLater(std::exchange(completion_, nullptr));
}

void AlphaAnimation::assign(double value) {
  if (value != value_) {
    value_ = value;
    changed_();
  }
}

std::function<void()> AlphaAnimation::end() {
  steps_.stop();
  isMoving_ = false;
  isWaiting_ = false;
  return std::exchange(completion_, nullptr);
}

}  // namespace roomlattice::platform::x11
