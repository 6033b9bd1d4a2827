#include "tests/linux/session/Wait.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <thread>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds interval = 2ms;

void letTimePass() {
  if (QCoreApplication::instance() == nullptr) {
    std::this_thread::sleep_for(interval);
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(interval, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    letTimePass();
  }
  return true;
}

}  // namespace roomlattice::tests
