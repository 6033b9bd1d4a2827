#include "platform/linux/system/Autostart.h"

#include "tests/linux/session/Environment.h"
#include "tests/linux/session/TextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::Autostart;
using platform::linux::autostartEntry;
using ::testing::HasSubstr;

using State = Autostart::State;

class AutostartTest : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  std::filesystem::path entry_ = folder_.path() / "config" / "autostart" / "roomlattice.desktop";
  Autostart autostart_{entry_};
};

TEST_F(AutostartTest, IsKeptWhereSessionsLook) {
  Environment environment;
  environment.set("XDG_CONFIG_HOME", (folder_.path() / "config").string());
  EXPECT_EQ(Autostart::standardPath(), entry_);
}

TEST_F(AutostartTest, IsSwitchedOnAndOff) {
  EXPECT_EQ(autostart_.state(), State::Off);
  EXPECT_TRUE(autostart_.set(State::On, "/usr/bin/roomlattice"));
  EXPECT_EQ(autostart_.state(), State::On);
  EXPECT_TRUE(autostart_.set(State::On, "/usr/bin/roomlattice"));
  EXPECT_TRUE(autostart_.set(State::Off, "/usr/bin/roomlattice"));
  EXPECT_EQ(autostart_.state(), State::Off);
  EXPECT_TRUE(autostart_.set(State::Off, "/usr/bin/roomlattice"));
  EXPECT_TRUE(std::filesystem::is_empty(entry_.parent_path()));
}

TEST_F(AutostartTest, IsOffWhereAnotherProgramHasSwitchedTheEntryOff) {
  for (const char* line : {"Hidden=true", "Hidden = true ", "X-GNOME-Autostart-enabled=false"}) {
    ASSERT_TRUE(autostart_.set(State::On, "/usr/bin/roomlattice"));
    writeText(entry_, textOf(entry_) + line + "\n");
    EXPECT_EQ(autostart_.state(), State::Off) << line;
  }
  EXPECT_TRUE(autostart_.set(State::On, "/usr/bin/roomlattice"));
  EXPECT_EQ(autostart_.state(), State::On);
}

TEST_F(AutostartTest, LeavesWhatIsThereWhereItCannotWrite) {
  writeText(folder_.path() / "config", "not a folder");
  EXPECT_FALSE(autostart_.set(State::On, "/usr/bin/roomlattice"));
  EXPECT_EQ(autostart_.state(), State::Off);
  EXPECT_EQ(textOf(folder_.path() / "config"), "not a folder");
}

TEST_F(AutostartTest, LeavesNothingBesideAnEntryThatItCannotReplace) {
  std::filesystem::create_directories(entry_ / "inside");
  EXPECT_FALSE(autostart_.set(State::On, "/usr/bin/roomlattice"));
  EXPECT_FALSE(autostart_.set(State::Off, "/usr/bin/roomlattice"));
  const std::filesystem::directory_iterator beside(entry_.parent_path());
  EXPECT_EQ(std::distance(begin(beside), end(beside)), 1);
}

TEST_F(AutostartTest, StartsTheProgramWhereverItIs) {
  EXPECT_THAT(autostartEntry("/usr/bin/roomlattice"),
              HasSubstr("\nTryExec=/usr/bin/roomlattice\nExec=\"/usr/bin/roomlattice\" --at-login\n"));
  EXPECT_THAT(autostartEntry(R"(/a b/100%/$x"`\y)"), HasSubstr(R"(TryExec=/a b/100%/$x"`\\y)"
                                                               "\n"
                                                               R"(Exec="/a b/100%%/\\$x\\"\\`\\\\y" --at-login)"
                                                               "\n"));
}

}  // namespace
}  // namespace roomlattice::tests
