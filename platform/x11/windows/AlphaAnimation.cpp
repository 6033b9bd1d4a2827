#include "platform/x11/windows/AlphaAnimation.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

/// On a later turn, whatever has gone by then: the completion may be all that keeps its window.
void callLater(std::function<void()> completion) {
  QMetaObject::invokeMethod(qApp, std::move(completion), Qt::QueuedConnection);
}

}  // namespace

AlphaAnimation::AlphaAnimation(double value, std::function<void()> changed)
    : value_(value), changed_(std::move(changed)) {
  animation_.setEasingCurve(QEasingCurve::InOutSine);
  QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_, [this](const QVariant& now) {
    // The toolkit also reports a value while the next move is being set up.
    if (animation_.state() == QAbstractAnimation::Running) {
      assign(now.toDouble());
    }
  });
  QObject::connect(&animation_, &QVariantAnimation::finished, &animation_, [this] {
    assign(animation_.endValue().toDouble());
    callLater(std::exchange(completion_, nullptr));
  });
}

AlphaAnimation::~AlphaAnimation() {
  animation_.disconnect();
}

void AlphaAnimation::set(double value) {
  // Kept to the end of the call, as it may own the owner of this object.
  const std::function<void()> replaced = end();
  assign(value);
}

void AlphaAnimation::moveTo(double target, Duration duration, std::function<void()> completion) {
  const std::function<void()> replaced = end();
  if (duration <= Duration::zero()) {
    assign(target);
    callLater(std::move(completion));
    return;
  }
  completion_ = std::move(completion);
  animation_.setStartValue(value_);
  animation_.setEndValue(target);
  const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(duration);
  animation_.setDuration(static_cast<int>(milliseconds.count()));
  animation_.start();
}

void AlphaAnimation::assign(double value) {
  if (value != value_) {
    value_ = value;
    changed_();
  }
}

std::function<void()> AlphaAnimation::end() {
  animation_.stop();
  return std::exchange(completion_, nullptr);
}

}  // namespace roomlattice::platform::x11
