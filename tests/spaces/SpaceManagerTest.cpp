#include "spaces/SpaceManager.h"

#include "tests/support/SimulatedFixture.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

const SpaceInfo first{1, "A", "Main", 0};
const SpaceInfo second{2, "B", "Main", 0};
const SpaceInfo fullScreen{3, "F", "Main", 4};

class SpaceManagerModel : public tests::SimulatedFixture {
 protected:
  SpaceManager& manager = SpaceManager::shared();

  /// What was posted since the last call, in order.
  std::vector<std::string> takePosts() { return std::exchange(posts_, {}); }

  std::set<std::string> known() {
    const auto uuids = desktop.storedDefaults()["KnownSpaceUUIDs"].toStrings().value();
    EXPECT_EQ(std::set(uuids.begin(), uuids.end()).size(), uuids.size());
    return {uuids.begin(), uuids.end()};
  }

 private:
  platform::Registration record(std::string_view name) {
    return platform().notifications().defaultCenter().observe(name, [this, name] { posts_.emplace_back(name); });
  }

  std::vector<std::string> posts_;
  platform::Registration changes_ = record(SpaceManager::didChange);
  platform::Registration activations_ = record(SpaceManager::activeChanged);
};

const std::vector<std::string> change{"SpaceManagerDidChange"};
const std::vector<std::string> activation{"SpaceManagerActiveSpaceChanged"};
const std::vector<std::string> changeThenActivation{"SpaceManagerDidChange", "SpaceManagerActiveSpaceChanged"};

TEST_F(SpaceManagerModel, IsEmptyBeforeTheFirstSnapshot) {
  EXPECT_TRUE(manager.spaces().empty());
  EXPECT_EQ(manager.activeSpaceID(), 0U);
  EXPECT_EQ(manager.activeSpace(), nullptr);
}

TEST_F(SpaceManagerModel, IsOneSharedInstance) {
  EXPECT_EQ(&manager, &SpaceManager::shared());
}

TEST_F(SpaceManagerModel, KeepsTheSnapshot) {
  manager.update({first, fullScreen, second}, 3);
  EXPECT_EQ(manager.spaces(), (std::vector{first, fullScreen, second}));
  EXPECT_EQ(manager.activeSpaceID(), 3U);
  ASSERT_NE(manager.activeSpace(), nullptr);
  EXPECT_EQ(*manager.activeSpace(), fullScreen);
}

TEST_F(SpaceManagerModel, PostsTheListBeforeTheActiveDesktop) {
  manager.update({first, second}, 1);
  EXPECT_EQ(takePosts(), changeThenActivation);
}

TEST_F(SpaceManagerModel, HasTheNewSnapshotWhenItPosts) {
  std::size_t seenSpaces = 0;
  platform::SpaceID seenActive = 0;
  const auto observer = platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] {
    seenSpaces = manager.spaces().size();
    seenActive = manager.activeSpaceID();
  });
  manager.update({first, second}, 2);
  EXPECT_EQ(seenSpaces, 2U);
  EXPECT_EQ(seenActive, 2U);
}

TEST_F(SpaceManagerModel, PostsNothingForAnIdenticalSnapshotButRemembersAgain) {
  manager.update({first, second}, 1);
  takePosts();
  desktop.storedDefaults().erase("KnownSpaceUUIDs");
  manager.update({first, second}, 1);
  EXPECT_TRUE(takePosts().empty());
  EXPECT_EQ(known(), (std::set<std::string>{"A", "B"}));
}

TEST_F(SpaceManagerModel, PostsOnlyTheActiveDesktopWhenOnlyThatChanges) {
  manager.update({first, second}, 1);
  takePosts();
  manager.update({first, second}, 2);
  EXPECT_EQ(takePosts(), activation);
}

TEST_F(SpaceManagerModel, PostsOnlyTheListWhenOnlyThatChanges) {
  manager.update({first, second}, 1);
  takePosts();
  manager.update({second, first}, 1);
  EXPECT_EQ(takePosts(), change);
  manager.update({second}, 1);
  EXPECT_EQ(takePosts(), change);
  SpaceInfo moved = second;
  moved.displayUUID = "Other";
  manager.update({moved}, 1);
  EXPECT_EQ(takePosts(), change);
}

TEST_F(SpaceManagerModel, PostsWhenTheListBecomesEmpty) {
  manager.update({first}, 1);
  takePosts();
  manager.update({}, 1);
  EXPECT_EQ(takePosts(), change);
  EXPECT_EQ(manager.activeSpace(), nullptr);
}

TEST_F(SpaceManagerModel, RemembersEveryRegularDesktopForGood) {
  desktop.storedDefaults()["KnownSpaceUUIDs"] = Value::Array{"Z", "A"};
  manager.update({first, fullScreen}, 1);
  EXPECT_EQ(known(), (std::set<std::string>{"A", "Z"}));
  manager.update({second}, 2);
  EXPECT_EQ(known(), (std::set<std::string>{"A", "B", "Z"}));
}

TEST_F(SpaceManagerModel, ForgetsAMemoryThatIsNotAListOfStrings) {
  for (const Value& damaged : {Value("A"), Value(Value::Array{"Z", 7}), Value(Value::Dictionary{{"Z", "Z"}})}) {
    desktop.storedDefaults()["KnownSpaceUUIDs"] = damaged;
    manager.update({first}, 1);
    EXPECT_EQ(known(), std::set<std::string>{"A"});
  }
}

TEST_F(SpaceManagerModel, RemembersBeforeItPosts) {
  std::set<std::string> seen;
  const auto observer =
      platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] { seen = known(); });
  manager.update({first}, 1);
  EXPECT_EQ(seen, std::set<std::string>{"A"});
}

}  // namespace
}  // namespace roomlattice
