#include "platform/linux/tray/TrayWatch.h"

#include "tests/linux/session/BusFixture.h"
#include "tests/linux/tray/FakeTray.h"

namespace roomlattice::tests {
namespace {

using platform::Registration;
using platform::linux::MessageBus;
using platform::linux::TrayWatch;

class TrayWatchTest : public BusTest {
 protected:
  using State = TrayWatch::State;

  bool becomes(State state) {
    return waitFor([this, state] { return watch_.state() == state; });
  }

  FakeTray tray_{daemon_.address()};
  MessageBus bus_{MessageBus::Kind::Session};
  TrayWatch watch_{bus_};
};

TEST_F(TrayWatchTest, KnowsNothingBeforeTheBusHasAnswered) {
  EXPECT_EQ(watch_.state(), State::Unknown);
}

TEST_F(TrayWatchTest, FindsThatThereIsNoWatcher) {
  EXPECT_TRUE(becomes(State::Absent));
}

TEST_F(TrayWatchTest, FindsAHostThatIsThereAlready) {
  tray_.appear(TrayHost::Registered);
  EXPECT_TRUE(becomes(State::Present));
}

TEST_F(TrayWatchTest, TakesAWatcherWithoutAHostForNoTray) {
  tray_.appear(TrayHost::None);
  EXPECT_TRUE(becomes(State::Absent));
}

TEST_F(TrayWatchTest, FollowsHostsAtTheSameWatcher) {
  tray_.appear(TrayHost::None);
  ASSERT_TRUE(becomes(State::Absent));
  tray_.setHost(TrayHost::Registered);
  EXPECT_TRUE(becomes(State::Present));
  tray_.setHost(TrayHost::None);
  EXPECT_TRUE(becomes(State::Absent));
}

TEST_F(TrayWatchTest, FollowsHostsThatTheWatcherDoesNotTellOf) {
  tray_.appear(TrayHost::None);
  ASSERT_TRUE(becomes(State::Absent));
  tray_.setHostSilently(TrayHost::Registered);
  EXPECT_TRUE(becomes(State::Present));
  tray_.setHostSilently(TrayHost::None);
  EXPECT_TRUE(becomes(State::Absent));
}

TEST_F(TrayWatchTest, FollowsWatchersThatComeAndGo) {
  for (int times = 0; times < 3; ++times) {
    tray_.appear(TrayHost::Registered);
    EXPECT_TRUE(becomes(State::Present));
    tray_.disappear();
    EXPECT_TRUE(becomes(State::Absent));
  }
}

TEST_F(TrayWatchTest, TellsOfEachChange) {
  int changes = 0;
  const Registration observer = watch_.observe([&] { ++changes; });
  ASSERT_TRUE(becomes(State::Absent));
  EXPECT_EQ(changes, 1);
  tray_.appear(TrayHost::Registered);
  ASSERT_TRUE(becomes(State::Present));
  EXPECT_EQ(changes, 2);
}

TEST_F(TrayWatchTest, TellsOfNothingWhereNothingChanges) {
  tray_.appear(TrayHost::Registered);
  ASSERT_TRUE(becomes(State::Present));
  int changes = 0;
  const Registration observer = watch_.observe([&] { ++changes; });
  tray_.setHost(TrayHost::Registered);
  tray_.setHost(TrayHost::None);
  ASSERT_TRUE(becomes(State::Absent));
  EXPECT_EQ(changes, 1);
}

TEST_F(TrayWatchTest, FindsNoTrayWhereTheBusHasGone) {
  tray_.appear(TrayHost::Registered);
  ASSERT_TRUE(becomes(State::Present));
  daemon_.stop();
  EXPECT_TRUE(becomes(State::Absent));
}

}  // namespace
}  // namespace roomlattice::tests
