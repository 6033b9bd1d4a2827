#include "platform/simulated/DesktopNameList.h"

#include "tests/support/SimulatedFixture.h"

#include <string>

namespace roomlattice::tests {
namespace {

using platform::DesktopNames;

class DesktopNameListTest : public SimulatedFixture {
 protected:
  platform::simulated::DesktopNameList& list() { return desktop.names(); }
  DesktopNames& names() { return platform().desktopNames(); }

  const std::string first_ = desktop.spaces().all().at(0).uuid;
  const std::string second_ = desktop.spaces().all().at(1).uuid;
};

TEST_F(DesktopNameListTest, HasNoNamesToShareUntilSomeAreSet) {
  EXPECT_EQ(names().read(), std::nullopt);
  names().set(first_, "Mail");
  desktop.advance(1s);
  EXPECT_EQ(names().read(), std::nullopt);
  list().rename(second_, "Web");
  EXPECT_EQ(names().read(), (DesktopNames::Names{{second_, "Web"}}));
}

TEST_F(DesktopNameListTest, GivesANameOnALaterTurnAndTells) {
  list().replace(DesktopNames::Names{});
  int changes = 0;
  const platform::Registration observer = names().observe([&] { ++changes; });
  names().set(first_, "Mail");
  EXPECT_EQ(changes, 0);
  desktop.advance(0s);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(names().read(), (DesktopNames::Names{{first_, "Mail"}}));
  EXPECT_EQ(list().wishes(), 1);
}

TEST_F(DesktopNameListTest, MakesOfANameWhatTheScriptSays) {
  list().replace(DesktopNames::Names{{first_, "Mail"}});
  list().answer = [this](const std::string& uuid, const std::string& name) {
    return uuid == first_ ? std::nullopt : std::optional(name + "!");
  };
  names().set(first_, "Web");
  names().set(second_, "Web");
  desktop.advance(0s);
  EXPECT_EQ(names().read(), (DesktopNames::Names{{first_, "Mail"}, {second_, "Web!"}}));
}

TEST_F(DesktopNameListTest, KeepsItsNamesFromOneRunOfAProgramToTheNext) {
  list().replace(DesktopNames::Names{{first_, "Mail"}});
  relaunch();
  EXPECT_EQ(names().read(), (DesktopNames::Names{{first_, "Mail"}}));
}

}  // namespace
}  // namespace roomlattice::tests
