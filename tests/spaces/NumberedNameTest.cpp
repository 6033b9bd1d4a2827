#include "spaces/NumberedName.h"

#include <gtest/gtest.h>

namespace roomlattice {
namespace {

TEST(NumberedNameTest, IsOneThatOnlyCounts) {
  for (const char* name : {"",
                           " ",
                           "3",
                           " 3 ",
                           "3.",
                           "#3",
                           "12",
                           "Desktop 3",
                           "desktop 3",
                           "Desktop3",
                           "Workspace 3",
                           "WORKSPACE 12",
                           "Workspace #3",
                           "workspace-3",
                           "\tDesktop 3\n",
                           "Arbeitsfläche 3",
                           "3. munkaterület",
                           "Рабочий стол 3",
                           "デスクトップ 3",
                           "桌面 3",
                           "Bureau 3",
                           "Obszar roboczy 3"}) {
    EXPECT_TRUE(isNumberedName(name)) << name;
  }
}

TEST(NumberedNameTest, IsNoneThatSomebodyMadeUp) {
  for (const char* name : {"Mail", "Mail 2", "2: mail", "Desktop", "Workspace", "Bureau", "Desktop 3 a", "My Desktop 3",
                           "Desktop 3 4", "2026-11", "-", "#", "III", "Desk top 3", "\xff", "3\xff"}) {
    EXPECT_FALSE(isNumberedName(name)) << name;
  }
}

TEST(NumberedNameTest, TakesAnotherNumberAndStaysLikeTheOthers) {
  EXPECT_EQ(numberedNameLike("Workspace 3", 12), "Workspace 12");
  EXPECT_EQ(numberedNameLike("12. munkaterület", 3), "3. munkaterület");
  EXPECT_EQ(numberedNameLike(" 2 ", 1), " 1 ");
  EXPECT_EQ(numberedNameLike("", 4), "Desktop 4");
}

}  // namespace
}  // namespace roomlattice
