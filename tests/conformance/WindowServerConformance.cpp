#include "tests/conformance/ConformanceTest.h"

#include "platform/DockSwipe.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;
using platform::Event;
using platform::EventField;
using platform::SpaceID;
using platform::Value;
using platform::WindowServer;

/// What a dictionary has under a key; null for what is no dictionary.
const Value* member(const Value& value, const std::string& key) {
  const Value::Dictionary* const dictionary = value.asDictionary();
  return dictionary == nullptr ? nullptr : platform::find(*dictionary, key);
}

class WindowServerConformance : public ConformanceTest {
 protected:
  WindowServer& server() { return platform().windowServer(); }

  /// The spaces of all displays, in order.
  std::vector<Value> spaces() {
    std::vector<Value> all;
    const Value displays = server().managedDisplaySpaces();
    if (displays.asArray() == nullptr) {
      return all;
    }
    for (const Value& display : *displays.asArray()) {
      const Value* const list = member(display, "Spaces");
      if (list != nullptr && list->asArray() != nullptr) {
        all.insert(all.end(), list->asArray()->begin(), list->asArray()->end());
      }
    }
    return all;
  }

  std::vector<SpaceID> identifiers() {
    std::vector<SpaceID> all;
    for (const Value& space : spaces()) {
      const Value* const identifier = member(space, "ManagedSpaceID");
      all.push_back(identifier == nullptr || identifier->asInteger() == nullptr
                        ? 0
                        : static_cast<SpaceID>(*identifier->asInteger()));
    }
    return all;
  }

  void postSwipe(DockSwipe::Phase phase, double progress) {
    const std::unique_ptr<Event> event = platform().events().createEvent();
    ASSERT_NE(event, nullptr);
    DockSwipe{.phase = phase, .progress = progress, .velocity = 400.0}.write(*event);
    platform().events().post(*event);
  }
};

TEST_F(WindowServerConformance, DescribesDisplaysAndTheirDesktops) {
  const Value displays = server().managedDisplaySpaces();
  ASSERT_NE(displays.asArray(), nullptr);
  ASSERT_FALSE(displays.asArray()->empty());
  for (const Value& display : *displays.asArray()) {
    const Value* const identifier = member(display, "Display Identifier");
    EXPECT_TRUE(identifier != nullptr && identifier->asString() != nullptr);
  }
  ASSERT_GE(spaces().size(), 2U);
  for (const Value& space : spaces()) {
    const Value* const uuid = member(space, "uuid");
    EXPECT_TRUE(uuid != nullptr && uuid->asString() != nullptr);
    const Value* const type = member(space, "type");
    EXPECT_TRUE(type != nullptr && *type == Value(0));
  }
}

TEST_F(WindowServerConformance, GivesEachDesktopAnIdentifierOfItsOwn) {
  const std::vector<SpaceID> all = identifiers();
  EXPECT_EQ(std::set<SpaceID>(all.begin(), all.end()).size(), all.size());
  EXPECT_EQ(std::ranges::count(all, SpaceID{0}), 0);
}

TEST_F(WindowServerConformance, HasOneOfTheDesktopsInFront) {
  const std::vector<SpaceID> all = identifiers();
  EXPECT_EQ(std::ranges::count(all, server().activeSpace()), 1);
}

TEST_F(WindowServerConformance, IgnoresWindowsAndDesktopsThatItDoesNotKnow) {
  const std::vector<SpaceID> before = identifiers();
  server().addWindowToSpace(987654, 123456);
  server().removeWindowFromSpace(987654, 123456);
  EXPECT_EQ(identifiers(), before);
}

TEST_F(WindowServerConformance, GoesToTheNextDesktopForACompletedSwipeAndTellsTheWorkspace) {
  const std::vector<SpaceID> all = identifiers();
  ASSERT_GE(all.size(), 2U);
  ASSERT_EQ(server().activeSpace(), all[0]);
  int changes = 0;
  const platform::Registration observer = platform().notifications().workspaceCenter().observe(
      platform::notification::activeSpaceDidChange, [&] { ++changes; });
  postSwipe(DockSwipe::Began, 0.001);
  postSwipe(DockSwipe::Changed, 0.5);
  postSwipe(DockSwipe::Ended, 1.0);
  EXPECT_TRUE(runUntil([&] { return changes > 0 && server().activeSpace() == all[1]; }));
}

}  // namespace
}  // namespace roomlattice::tests
