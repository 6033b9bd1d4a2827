#include "spaces/SpaceManager.h"

#include "tests/support/SimulatedFixture.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

class SpaceManagerTest : public tests::SimulatedFixture {
 protected:
  const SpaceInfo first{1, "A", "Main", 0};
  const SpaceInfo second{2, "B", "Main", 0};
  const SpaceInfo fullScreen{3, "F", "Main", 4};
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

TEST_F(SpaceManagerTest, IsEmptyBeforeTheFirstSnapshot) {
  EXPECT_TRUE(manager.spaces().empty());
  EXPECT_EQ(manager.activeSpaceID(), 0U);
  EXPECT_EQ(manager.activeSpace(), nullptr);
}

TEST_F(SpaceManagerTest, IsOneSharedInstance) {
  EXPECT_EQ(&manager, &SpaceManager::shared());
}

TEST_F(SpaceManagerTest, KeepsTheSnapshot) {
  manager.update({first, fullScreen, second}, 3);
  EXPECT_EQ(manager.spaces(), (std::vector{first, fullScreen, second}));
  EXPECT_EQ(manager.activeSpaceID(), 3U);
  ASSERT_NE(manager.activeSpace(), nullptr);
  EXPECT_EQ(*manager.activeSpace(), fullScreen);
}

TEST_F(SpaceManagerTest, PostsTheListBeforeTheActiveDesktop) {
  manager.update({first, second}, 1);
  EXPECT_EQ(takePosts(), changeThenActivation);
}

TEST_F(SpaceManagerTest, HasTheNewSnapshotWhenItPosts) {
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

TEST_F(SpaceManagerTest, PostsNothingForAnIdenticalSnapshotButRemembersAgain) {
  manager.update({first, second}, 1);
  takePosts();
  desktop.storedDefaults().erase("KnownSpaceUUIDs");
  manager.update({first, second}, 1);
  EXPECT_TRUE(takePosts().empty());
  EXPECT_EQ(known(), (std::set<std::string>{"A", "B"}));
}

TEST_F(SpaceManagerTest, PostsOnlyTheActiveDesktopWhenOnlyThatChanges) {
  manager.update({first, second}, 1);
  takePosts();
  manager.update({first, second}, 2);
  EXPECT_EQ(takePosts(), activation);
}

TEST_F(SpaceManagerTest, PostsOnlyTheListWhenOnlyThatChanges) {
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

TEST_F(SpaceManagerTest, PostsWhenTheListBecomesEmpty) {
  manager.update({first}, 1);
  takePosts();
  manager.update({}, 1);
  EXPECT_EQ(takePosts(), change);
  EXPECT_EQ(manager.activeSpace(), nullptr);
}

TEST_F(SpaceManagerTest, RemembersEveryRegularDesktopForGood) {
  desktop.storedDefaults()["KnownSpaceUUIDs"] = Value::Array{"Z", "A"};
  manager.update({first, fullScreen}, 1);
  EXPECT_EQ(known(), (std::set<std::string>{"A", "Z"}));
  manager.update({second}, 2);
  EXPECT_EQ(known(), (std::set<std::string>{"A", "B", "Z"}));
}

TEST_F(SpaceManagerTest, ForgetsAMemoryThatIsNotAListOfStrings) {
  for (const Value& damaged : {Value("A"), Value(Value::Array{"Z", 7}), Value(Value::Dictionary{{"Z", "Z"}})}) {
    desktop.storedDefaults()["KnownSpaceUUIDs"] = damaged;
    manager.update({first}, 1);
    EXPECT_EQ(known(), std::set<std::string>{"A"});
  }
}

TEST_F(SpaceManagerTest, RemembersBeforeItPosts) {
  std::set<std::string> seen;
  const auto observer =
      platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] { seen = known(); });
  manager.update({first}, 1);
  EXPECT_EQ(seen, std::set<std::string>{"A"});
}

TEST_F(SpaceManagerTest, RemembersNoSpaceOfAnotherTypeWhicheverThatIs) {
  std::vector<SpaceInfo> spaces{first};
  for (const std::int64_t type : {-1, 1, 2, 3, 4, 5}) {
    spaces.push_back({.spaceID = 20, .uuid = "of type " + std::to_string(type), .displayUUID = "Main", .type = type});
  }
  manager.update(spaces, 1);
  EXPECT_EQ(manager.spaces(), spaces);
  EXPECT_EQ(known(), std::set<std::string>{"A"});
}

// An observer of the list may bring another snapshot before the first one has been announced to the end.
TEST_F(SpaceManagerTest, PostsByTheActiveDesktopItWasGivenWhateverIsActiveByThen) {
  struct Row {
    platform::SpaceID given;
    platform::SpaceID meanwhile;
    std::vector<std::string> posts;
  };
  const std::vector<Row> rows = {
      {.given = 2, .meanwhile = 1, .posts = {change[0], activation[0], activation[0]}},
      {.given = 1, .meanwhile = 2, .posts = {change[0], activation[0]}},
  };
  for (const Row& row : rows) {
    manager.update({first}, 1);
    takePosts();
    bool answered = false;
    const auto observer = platform().notifications().defaultCenter().observe(SpaceManager::didChange, [&] {
      if (!std::exchange(answered, true)) {
        manager.update({first, second}, row.meanwhile);
      }
    });
    manager.update({first, second}, row.given);
    EXPECT_EQ(takePosts(), row.posts) << row.given;
    EXPECT_EQ(manager.activeSpaceID(), row.meanwhile);
  }
}

}  // namespace
}  // namespace roomlattice
