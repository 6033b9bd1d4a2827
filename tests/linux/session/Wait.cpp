#include "tests/linux/session/Wait.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <thread>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds shortestPause = 2ms;
constexpr std::chrono::milliseconds longestPause = 50ms;

/// Who looks all the time takes the processor from those that he waits for.
std::chrono::milliseconds pauseAfter(Clock::duration look) {
  return std::clamp(std::chrono::ceil<std::chrono::milliseconds>(4 * look), shortestPause, longestPause);
}

void letTimePass(std::chrono::milliseconds time) {
  if (QCoreApplication::instance() == nullptr) {
    std::this_thread::sleep_for(time);
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = Clock::now() + limit;
  for (;;) {
    const auto start = Clock::now();
    if (condition()) {
      return true;
    }
    const auto now = Clock::now();
    if (now > end) {
      return false;
    }
    letTimePass(pauseAfter(now - start));
  }
}

}  // namespace roomlattice::tests
