#include "platform/linux/system/RestingBeat.h"

#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::RestingBeat;

class RestingBeatTest : public ::testing::Test {
 protected:
  /// Runs the event loop for some fifty periods, without an event.
  static void letNothingHappen() {
    QAbstractEventDispatcher* const loop = QAbstractEventDispatcher::instance();
    std::atomic<bool> isOver = false;
    const std::jthread clock([&] {
      std::this_thread::sleep_for(50ms);
      isOver = true;
      loop->wakeUp();
    });
    while (!isOver) {
      loop->processEvents(QEventLoop::WaitForMoreEvents);
    }
  }

  ToolkitApplication<QCoreApplication> qt_;
  QObject owner_;
  int calls_ = 0;
};

TEST_F(RestingBeatTest, RestsUntilSomethingHappens) {
  new RestingBeat(
      0ms, 1ms, [this] { ++calls_; }, &owner_);
  letNothingHappen();
  EXPECT_EQ(calls_, 1);
  for (int calls = 2; calls < 4; ++calls) {
    QCoreApplication::postEvent(&owner_, new QEvent(QEvent::User));
    letNothingHappen();
    EXPECT_EQ(calls_, calls);
  }
}

TEST_F(RestingBeatTest, GoesOnForWhatItsOwnCallBringsAbout) {
  new RestingBeat(
      0ms, 1ms,
      [this] {
        if (++calls_ == 1) {
          QCoreApplication::postEvent(&owner_, new QEvent(QEvent::User));
        }
      },
      &owner_);
  letNothingHappen();
  EXPECT_EQ(calls_, 2);
}

TEST_F(RestingBeatTest, ComesOnceAPeriodWhileThereAreEvents) {
  const auto start = std::chrono::steady_clock::now();
  new RestingBeat(
      20ms, 20ms, [this] { ++calls_; }, &owner_);
  ASSERT_TRUE(waitFor([this] {
    QCoreApplication::postEvent(&owner_, new QEvent(QEvent::User));
    return calls_ == 3;
  }));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 60ms);
}

TEST_F(RestingBeatTest, MayEndWithinItsCall) {
  auto owner = std::make_unique<QObject>();
  new RestingBeat(
      0ms, 1ms,
      [&] {
        ++calls_;
        owner.reset();
      },
      owner.get());
  letNothingHappen();
  QCoreApplication::postEvent(&owner_, new QEvent(QEvent::User));
  letNothingHappen();
  EXPECT_EQ(calls_, 1);
}

}  // namespace
}  // namespace roomlattice::tests
