#include "platform/x11/desktops/X11WindowServer.h"

#include "platform/ManagedSpaces.h"
#include "tests/x11/desktops/DesktopsFixture.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Value;
using ::testing::ElementsAre;

class X11WindowServerTest : public ::testing::Test {
 protected:
  bool counts(int desktops) {
    return waitFor([&] { return followed_.count() == desktops; });
  }

  /// The dictionaries of the desktops, as they are now.
  std::vector<const Value::Dictionary*> spaces() {
    answers_.push_back(server_.managedDisplaySpaces());
    const Value::Dictionary* display = answers_.back().toDictionaries().value().at(0);
    return display->at(platform::managedSpacesKey::spaces).toDictionaries().value();
  }

  std::vector<std::string> uuids() {
    std::vector<std::string> uuids;
    for (const Value::Dictionary* space : spaces()) {
      uuids.push_back(*space->at(platform::managedSpacesKey::uuid).asString());
    }
    return uuids;
  }

  FollowedKWinDesktops followed_;
  platform::x11::WindowAttachments attachments_;
  platform::x11::X11WindowServer server_{0, followed_.desktops, attachments_};
  std::vector<Value> answers_;
};

TEST_F(X11WindowServerTest, ListsTheDesktopsInTheirOrder) {
  EXPECT_EQ(uuids(), followed_.uuids());
  followed_.create(1);
  ASSERT_TRUE(counts(4));
  EXPECT_EQ(uuids(), followed_.uuids());
  followed_.remove("test-desktop-2");
  ASSERT_TRUE(counts(3));
  EXPECT_EQ(uuids(), followed_.uuids());
}

TEST_F(X11WindowServerTest, KeepsTheDictionariesOfDesktopsThatAreAsTheyWere) {
  const std::vector<const Value::Dictionary*> before = spaces();
  ASSERT_EQ(before.size(), 3U);
  followed_.create(1);
  ASSERT_TRUE(counts(4));
  const std::vector<const Value::Dictionary*> more = spaces();
  ASSERT_EQ(more.size(), 4U);
  EXPECT_THAT(more, ElementsAre(before[0], more[1], before[1], before[2]));
  followed_.remove("test-desktop-1");
  ASSERT_TRUE(counts(3));
  EXPECT_THAT(spaces(), ElementsAre(more[1], before[1], before[2]));
}

}  // namespace
}  // namespace roomlattice::tests
