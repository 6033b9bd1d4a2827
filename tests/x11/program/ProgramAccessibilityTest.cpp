#include "tests/linux/session/ToolkitApplication.h"
#include "tests/x11/session/AccessibilityBus.h"
#include "tests/x11/session/ProgramSession.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

/// The program as somebody meets it who cannot see it.
class ProgramAccessibilityTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(user_.startAndTour(R"({"SpaceNames": {"desktop-2": "Büro & Post"}, "InstantMenuSwitch": true})"))
        << user_.program().process().errorOutput();
    ASSERT_TRUE(waitFor([this] { return reader_.find("push button", "Desktop 1").size() == 1; }));
  }

  void pressTheItem() { reader_.act(reader_.find("push button", "Desktop 1").front(), "Press"); }

  std::vector<std::string> namesOf(const std::vector<AccessibilityBus::Object>& objects) {
    std::vector<std::string> names;
    for (const AccessibilityBus::Object& object : objects) {
      names.push_back(reader_.nameOf(object));
    }
    return names;
  }

  ProgramSession user_{{.desktops = 3}};
  ToolkitApplication<QCoreApplication> toolkit_;
  AccessibilityBus reader_;
};

TEST_F(ProgramAccessibilityTest, OpensItsMenuByTheItemsActionAndShowsItsRows) {
  EXPECT_THAT(reader_.find("popup menu"), SizeIs(0));
  pressTheItem();
  ASSERT_TRUE(waitFor([this] { return reader_.find("popup menu", "Desktops").size() == 1; }));
  const auto rows = reader_.find("menu item");
  EXPECT_THAT(namesOf(rows), ElementsAre("Desktop 1", "Büro & Post", "Desktop 3", "Preferences…", "Quit Plinkhaven"));
  EXPECT_TRUE(reader_.isChecked(rows[0]));
  EXPECT_FALSE(reader_.isChecked(rows[1]));
}

TEST_F(ProgramAccessibilityTest, IsWorkedByTheKeyboardAlone) {
  pressTheItem();
  ASSERT_TRUE(waitFor([this] { return user_.isMenuOpen(); }));
  user_.pressKeys({"Down", "Down", "F2"});
  user_.typeText("Letters");
  user_.pressKeys({"Return"});
  EXPECT_TRUE(waitFor([this] { return reader_.find("menu item", "Letters").size() == 1; }));
  user_.pressKeys({"d", "l"});
  EXPECT_TRUE(waitFor([this] { return reader_.isFocused(reader_.find("menu item", "Letters").front()); }));
  user_.pressKeys({"3"});
  EXPECT_TRUE(user_.menuCloses());
  EXPECT_TRUE(waitFor([this] { return user_.isOnDesktop(2); }));
}

TEST_F(ProgramAccessibilityTest, SwitchesByTheActionOfARow) {
  pressTheItem();
  ASSERT_TRUE(waitFor([this] { return reader_.find("menu item", "Büro & Post").size() == 1; }));
  reader_.act(reader_.find("menu item", "Büro & Post").front(), "Press");
  EXPECT_TRUE(waitFor([this] { return user_.isOnDesktop(1); }));
  EXPECT_TRUE(user_.menuCloses());
}

}  // namespace
}  // namespace roomlattice::tests
