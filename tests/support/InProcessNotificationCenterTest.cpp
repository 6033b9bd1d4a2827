#include "support/InProcessNotificationCenter.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace roomlattice::platform {
namespace {

class InProcessNotificationCenterTest : public ::testing::Test {
 protected:
  NotificationCenter::Handler recording(int observer) {
    return [this, observer] { calls_.push_back(observer); };
  }

  InProcessNotificationCenter center_;
  std::vector<int> calls_;
};

TEST_F(InProcessNotificationCenterTest, CallsTheObserversOfANameInTheOrderOfTheirRegistration) {
  const Registration first = center_.observe("Moved", recording(1));
  const Registration other = center_.observe("Renamed", recording(9));
  const Registration second = center_.observe("Moved", recording(2));
  center_.post("Moved");
  EXPECT_EQ(calls_, (std::vector{1, 2}));
}

TEST_F(InProcessNotificationCenterTest, IsSilentAboutNamesNobodyObserves) {
  center_.post("Moved");
  EXPECT_TRUE(calls_.empty());
}

TEST_F(InProcessNotificationCenterTest, CallsNoObserverThatHasEnded) {
  Registration first = center_.observe("Moved", recording(1));
  const Registration second = center_.observe("Moved", recording(2));
  first.cancel();
  center_.post("Moved");
  EXPECT_EQ(calls_, std::vector{2});
}

TEST_F(InProcessNotificationCenterTest, LeavesOutAnObserverThatEndsDuringDelivery) {
  std::optional<Registration> second;
  const Registration first = center_.observe("Moved", [&] {
    calls_.push_back(1);
    second.reset();
  });
  second = center_.observe("Moved", recording(2));
  const Registration third = center_.observe("Moved", recording(3));
  center_.post("Moved");
  EXPECT_EQ(calls_, (std::vector{1, 3}));
}

TEST_F(InProcessNotificationCenterTest, LetsAnObserverEndItself) {
  std::optional<Registration> own;
  const auto witness = std::make_shared<int>(0);
  own = center_.observe("Moved", [&, witness] {
    own.reset();
    // The handler is still whole although its registration is gone.
    EXPECT_GE(witness.use_count(), 2);
    calls_.push_back(1);
  });
  center_.post("Moved");
  center_.post("Moved");
  EXPECT_EQ(calls_, std::vector{1});
  EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(InProcessNotificationCenterTest, CallsAnObserverAddedDuringDeliveryFromTheNextPostOn) {
  std::vector<Registration> added;
  const Registration first = center_.observe("Moved", [&] {
    calls_.push_back(1);
    if (added.empty()) {
      added.push_back(center_.observe("Moved", recording(2)));
    }
  });
  center_.post("Moved");
  EXPECT_EQ(calls_, std::vector{1});
  center_.post("Moved");
  EXPECT_EQ(calls_, (std::vector{1, 1, 2}));
}

TEST_F(InProcessNotificationCenterTest, DeliversAPostFromWithinADelivery) {
  const Registration first = center_.observe("Moved", [&] {
    calls_.push_back(1);
    center_.post("Renamed");
  });
  const Registration nested = center_.observe("Renamed", recording(2));
  const Registration last = center_.observe("Moved", recording(3));
  center_.post("Moved");
  EXPECT_EQ(calls_, (std::vector{1, 2, 3}));
}

TEST_F(InProcessNotificationCenterTest, MayEndBeforeItsObservers) {
  auto center = std::make_unique<InProcessNotificationCenter>();
  Registration registration = center->observe("Moved", recording(1));
  center.reset();
  registration.cancel();
  EXPECT_TRUE(calls_.empty());
}

}  // namespace
}  // namespace roomlattice::platform
