#include "platform/linux/ctl/BarFormat.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::DesktopState;
using platform::linux::barFormatHeader;
using platform::linux::barFormatLine;
using platform::linux::isBarFormat;

std::vector<DesktopState> desktopsWithActive(const std::string& name) {
  return {{.number = 1, .name = "Other", .uuid = "a", .display = "D"},
          {.number = 2, .name = name, .color = {1.0, 0.0, 0.0}, .isActive = true, .uuid = "b", .display = "D"},
          {.number = std::nullopt, .name = "Film", .uuid = "c", .display = "D"}};
}

struct Row {
  std::string format;
  std::string line;
  std::string withOddName;
  std::string empty;
};

const std::string oddName = "<a> & \"b\" '%{c}\x1b";

class BarFormatOfBarTest : public ::testing::TestWithParam<Row> {};

TEST_P(BarFormatOfBarTest, IsWhatTheBarReads) {
  EXPECT_TRUE(isBarFormat(GetParam().format));
  EXPECT_EQ(barFormatLine(GetParam().format, desktopsWithActive("Mail")), GetParam().line);
  EXPECT_EQ(barFormatLine(GetParam().format, desktopsWithActive(oddName)), GetParam().withOddName);
  EXPECT_EQ(barFormatLine(GetParam().format, {}), GetParam().empty);
}

INSTANTIATE_TEST_SUITE_P(
    OfEachBar, BarFormatOfBarTest,
    ::testing::Values(
        Row{"polybar", "%{F#ff0000}Mail%{F-}", "%{F#ff0000}<a> & \"b\" '%\u200b{c}?%{F-}", ""},
        Row{"i3blocks", R"({"color":"#ff0000","full_text":"Mail"})",
            R"({"color":"#ff0000","full_text":"<a> & \"b\" '%{c}?"})", R"({"full_text":""})"},
        Row{"i3bar", R"([{"color":"#ff0000","full_text":"Mail","name":"roomlattice"}],)",
            R"([{"color":"#ff0000","full_text":"<a> & \"b\" '%{c}?","name":"roomlattice"}],)",
            R"([{"full_text":"","name":"roomlattice"}],)"},
        Row{"genmon", "<txt><span foreground=\"#ff0000\">Mail</span></txt><txtclick>roomlatticectl menu</txtclick>",
            "<txt><span foreground=\"#ff0000\">&lt;a&gt; &amp; &quot;b&quot; &apos;%{c}?</span></txt>"
            "<txtclick>roomlatticectl menu</txtclick>",
            "<txt></txt><txtclick>roomlatticectl menu</txtclick>"},
        Row{"tint2", "<span foreground=\"#ff0000\">Mail</span>",
            "<span foreground=\"#ff0000\">&lt;a&gt; &amp; &quot;b&quot; &apos;%{c}?</span>", ""},
        Row{"waybar", R"({"alt":"2","class":"desktop-2","text":"<span foreground=\"#ff0000\">Mail</span>"})",
            R"({"alt":"2","class":"desktop-2","text":"<span foreground=\"#ff0000\">&lt;a&gt; &amp; &quot;b&quot; &apos;%{c}?</span>"})",
            R"({"alt":"","class":"desktop-","text":""})"},
        Row{"lxqt", "Mail", "<a> & \"b\" '%{c}?", ""},
        Row{"{number}/{count} {name} {color} {uuid} {display} {other} {", "2/2 Mail #ff0000 b D {other} {",
            "2/2 <a> & \"b\" '%{c}? #ff0000 b D {other} {", ""}));

TEST(BarFormatTest, FillsNothingIntoWhatItHasFilledIn) {
  EXPECT_EQ(barFormatLine("{name}", desktopsWithActive("{number}")), "{number}");
}

TEST(BarFormatTest, HasAHeaderForTheBarThatWantsOne) {
  EXPECT_EQ(barFormatHeader("i3bar"), "{\"version\":1}\n[\n");
  EXPECT_EQ(barFormatHeader("polybar"), "");
}

TEST(BarFormatTest, IsNeitherAnyWordNorNothing) {
  EXPECT_FALSE(isBarFormat(""));
  EXPECT_FALSE(isBarFormat("Polybar"));
  EXPECT_FALSE(isBarFormat("{title}"));
}

}  // namespace
}  // namespace roomlattice::tests
