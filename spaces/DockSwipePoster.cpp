#include "spaces/DockSwipePoster.h"

#include <chrono>
#include <memory>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;
using platform::DockSwipe;

constexpr int changedEventCount = 8;
constexpr platform::Duration changedEventSpacing = 18ms;

// Negligible, yet not zero: the smallest positive single-precision value.
constexpr double instantProgress = 0x1p-149;
constexpr double instantVelocity = 400.0;

}  // namespace

void DockSwipePoster::post(platform::Direction direction, SwitchStyle style) {
  if (style == SwitchStyle::Instant) {
    instantDockSwipe(direction);
  } else {
    animatedDockSwipe(direction);
  }
}

void DockSwipePoster::animatedDockSwipe(platform::Direction direction) {
  const double sign = signOf(direction);
  post({.phase = DockSwipe::Began, .progress = sign * 0.001, .velocity = sign * 0.5});
  const auto postLater = [this, sign](int i, DockSwipe::Phase phase, double progress) {
    const DockSwipe swipe{.phase = phase, .progress = sign * progress, .velocity = sign * 1.5};
    dispatcher_.asyncAfter(changedEventSpacing * i, lifetime_.guard([this, swipe] { post(swipe); }));
  };
  for (int i = 1; i <= changedEventCount; ++i) {
    postLater(i, DockSwipe::Changed, static_cast<double>(i) / changedEventCount);
  }
  postLater(changedEventCount + 1, DockSwipe::Ended, 1.0);
}

void DockSwipePoster::instantDockSwipe(platform::Direction direction) {
  const double sign = signOf(direction);
  for (const DockSwipe::Phase phase : {DockSwipe::Began, DockSwipe::Changed, DockSwipe::Ended}) {
    post({.phase = phase, .progress = sign * instantProgress, .velocity = sign * instantVelocity});
  }
}

void DockSwipePoster::post(const DockSwipe& swipe) {
  // One that the system will not make is left out.
  if (const std::unique_ptr<platform::Event> event = events_.createEvent()) {
    swipe.write(*event);
    events_.post(*event);
  }
}

}  // namespace roomlattice
