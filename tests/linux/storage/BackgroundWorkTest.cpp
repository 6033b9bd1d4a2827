#include "platform/linux/storage/BackgroundWork.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <latch>
#include <memory>
#include <semaphore>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::BackgroundWork;
using Outcome = BackgroundWork::Outcome;

// What no test that passes waits for.
constexpr auto longTime = 30s;

/// Work that a test lets through, one doing after the other.
struct Gate {
  std::counting_semaphore<1000> begun{0};
  std::counting_semaphore<1000> open{0};
  std::atomic<int> count = 0;

  Outcome pass() {
    ++count;
    begun.release();
    open.acquire();
    return Outcome::Done;
  }
};

class BackgroundWorkTest : public ::testing::Test {
 protected:
  // The thread may hold it for longer than the test lives.
  std::shared_ptr<Gate> gate_ = std::make_shared<Gate>();
  BackgroundWork::Work gated_ = [gate = gate_] { return gate->pass(); };
};

TEST_F(BackgroundWorkTest, IsNotDoneUnlessRequested) {
  const BackgroundWork work(gated_, longTime);
  EXPECT_TRUE(work.waitUntilDone(0ms));
  EXPECT_EQ(gate_->count, 0);
}

TEST_F(BackgroundWorkTest, KeepsNobodyWaiting) {
  BackgroundWork work(gated_, longTime);
  work.request();
  gate_->begun.acquire();
  EXPECT_FALSE(work.waitUntilDone(1ms));
  gate_->open.release();
  EXPECT_TRUE(work.waitUntilDone(longTime));
}

TEST_F(BackgroundWorkTest, IsDoneOnceForAllRequestsThatComeWhileItIsUnderWay) {
  BackgroundWork work(gated_, longTime);
  work.request();
  gate_->begun.acquire();
  for (int i = 0; i < 100; ++i) {
    work.request();
  }
  gate_->open.release(100);
  EXPECT_TRUE(work.waitUntilDone(longTime));
  EXPECT_EQ(gate_->count, 2);
}

TEST_F(BackgroundWorkTest, IsTriedAgainByItself) {
  auto tries = std::make_shared<std::latch>(3);
  auto count = std::make_shared<std::atomic<int>>(0);
  BackgroundWork work(
      [tries, count] {
        if (++*count > 3) {
          return Outcome::Done;
        }
        tries->count_down();
        return Outcome::TryAgainLater;
      },
      1ms);
  work.request();
  tries->wait();
}

TEST_F(BackgroundWorkTest, LetsGoOfWhatDoesNotEnd) {
  {
    BackgroundWork work(gated_, longTime);
    work.request();
    gate_->begun.acquire();
  }
  gate_->open.release();
}

}  // namespace
}  // namespace roomlattice::tests
