#include "platform/simulated/SimulatedApplication.h"

#include "tests/support/SimulatedFixture.h"

#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Duration;

class SimulatedApplicationTest : public SimulatedFixture {
 protected:
  platform::simulated::SimulatedApplication& application() { return platform().application(); }
};

TEST_F(SimulatedApplicationTest, RunsUntilTheProgramTerminatesItself) {
  desktop.after(5s, [this] { application().terminate(); });
  const platform::Registration timer = platform().dispatcher().repeat(1s, 1s, [] {});
  EXPECT_EQ(application().run([] {}), 0);
  EXPECT_EQ(desktop.now(), 5s);
  EXPECT_TRUE(application().isTerminated());
}

TEST_F(SimulatedApplicationTest, FinishesLaunchingBeforeAnythingElseHappens) {
  std::vector<int> order;
  platform().dispatcher().async([&] { order.push_back(2); });
  application().run([&] { order.push_back(1); });
  EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(SimulatedApplicationTest, StopsWhereNothingIsLeftToHappen) {
  platform().dispatcher().asyncAfter(3s, [] {});
  EXPECT_EQ(application().run([] {}), 1);
  EXPECT_EQ(desktop.now(), 3s);
}

TEST_F(SimulatedApplicationTest, StopsAtItsLimit) {
  application().setRunLimit(10s);
  const platform::Registration timer = platform().dispatcher().repeat(1s, 1s, [] {});
  EXPECT_EQ(application().run([] {}), 1);
  EXPECT_EQ(desktop.now(), 10s);
}

TEST_F(SimulatedApplicationTest, RunsNothingMoreWhenTerminatedAtLaunch) {
  bool ran = false;
  platform().dispatcher().async([&] { ran = true; });
  EXPECT_EQ(application().run([this] { application().terminate(); }), 0);
  EXPECT_FALSE(ran);
}

TEST_F(SimulatedApplicationTest, RemembersHowItAppearsOnTheDesktop) {
  EXPECT_EQ(application().activationPolicy(), std::nullopt);
  application().setActivationPolicy(platform::ActivationPolicy::Accessory);
  application().activateIgnoringOtherApps();
  application().activateIgnoringOtherApps();
  EXPECT_EQ(application().activationPolicy(), platform::ActivationPolicy::Accessory);
  EXPECT_EQ(application().activations(), 2);
}

}  // namespace
}  // namespace roomlattice::tests
