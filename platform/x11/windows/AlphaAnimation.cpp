#include "platform/x11/windows/AlphaAnimation.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr QEasingCurve::Type easing = QEasingCurve::InOutSine;

/// On a later turn, whatever has gone by then: the completion may be all that keeps its window.
void callLater(std::function<void()> completion) {
  QMetaObject::invokeMethod(qApp, std::move(completion), Qt::QueuedConnection);
}

}  // namespace

AlphaAnimation::AlphaAnimation(double value, std::function<void()> changed)
    : value_(value), changed_(std::move(changed)) {
  animation_.setEasingCurve(easing);
  QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_, [this](const QVariant& now) {
    // The toolkit also reports a value while the next move is being set up.
    if (animation_.state() == QAbstractAnimation::Running) {
      assign(now.toDouble());
    }
  });
  QObject::connect(&animation_, &QVariantAnimation::finished, &animation_, [this] { arrive(); });
  // No move arrives after that, and a completion that owns the owner of this object would keep both for good.
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, &animation_, [this] { const auto dropped = end(); });
}

AlphaAnimation::~AlphaAnimation() {
  animation_.disconnect();
}

double AlphaAnimation::value() const {
  if (!jump_.isRunning()) {
    return value_;
  }
  const double progress =
      std::min(static_cast<double>(sinceStart_.elapsed()) / static_cast<double>(duration_.count()), 1.0);
  return value_ + (target_ - value_) * QEasingCurve(easing).valueForProgress(progress);
}

void AlphaAnimation::set(double value) {
  // Kept to the end of the call, as it may own the owner of this object.
  const std::function<void()> replaced = end();
  assign(value);
}

void AlphaAnimation::moveTo(double target, Duration duration, Steps steps, std::function<void()> completion) {
  const std::function<void()> replaced = end();
  if (duration <= Duration::zero()) {
    assign(target);
    callLater(std::move(completion));
    return;
  }
  completion_ = std::move(completion);
  target_ = target;
  duration_ = std::chrono::ceil<std::chrono::milliseconds>(duration);
  if (steps == Steps::One) {
    sinceStart_.start();
    jump_.start(duration_);
    return;
  }
  animation_.setStartValue(value_);
  animation_.setEndValue(target);
  animation_.setDuration(static_cast<int>(duration_.count()));
  animation_.start();
}

void AlphaAnimation::arrive() {
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
  value_ = value();
  animation_.stop();
  jump_.stop();
  return std::exchange(completion_, nullptr);
}

}  // namespace roomlattice::platform::x11
