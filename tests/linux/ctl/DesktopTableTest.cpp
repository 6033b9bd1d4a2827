#include "platform/linux/ctl/DesktopTable.h"

#include "support/JsonText.h"

#include <clocale>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::DesktopState;
using platform::linux::Coloring;
using platform::linux::desktopTable;
using platform::linux::desktopValue;
using ::testing::HasSubstr;

const std::vector<DesktopState> desktops{
    {.number = 1, .name = "Größe", .color = {1.0, 1.0, 0.0}, .isActive = true, .uuid = "a", .display = "D"},
    {.number = std::nullopt, .name = "F\x1b[1m", .color = {0.0, 0.0, 0.5}, .uuid = "long one", .display = "D"}};

class DesktopTableTest : public ::testing::Test {
 protected:
  DesktopTableTest() { std::setlocale(LC_CTYPE, "C.UTF-8"); }
  ~DesktopTableTest() override { std::setlocale(LC_CTYPE, "C"); }
};

TEST_F(DesktopTableTest, HasColumnsInLine) {
  EXPECT_EQ(desktopTable(desktops, Coloring::Off),
            "* 1  Größe  #ffff00  a         D\n"
            "  -  F?[1m  #000080  long one  D\n");
  EXPECT_EQ(desktopTable({}, Coloring::Off), "");
}

TEST_F(DesktopTableTest, ShowsColorsWhereTheyAreWanted) {
  const std::string table = desktopTable(desktops, Coloring::On);
  EXPECT_THAT(table, HasSubstr("\x1b[30;48;2;255;255;0m#ffff00\x1b[0m"));
  EXPECT_THAT(table, HasSubstr("\x1b[97;48;2;0;0;128m#000080\x1b[0m"));
}

TEST_F(DesktopTableTest, HasAFormForPrograms) {
  EXPECT_EQ(
      toJson(desktopValue(desktops[0]), JsonLayout::Compact),
      R"({"active":true,"color":"#ffff00","display":"D","fullscreen":false,"name":"Größe","number":1,"uuid":"a"})");
  EXPECT_THAT(*toJson(desktopValue(desktops[1]), JsonLayout::Compact), HasSubstr(R"("fullscreen":true)"));
  EXPECT_THAT(*toJson(desktopValue(desktops[1]), JsonLayout::Compact), HasSubstr(R"("number":null)"));
}

}  // namespace
}  // namespace roomlattice::tests
