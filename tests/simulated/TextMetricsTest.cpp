#include "platform/simulated/TextMetrics.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using namespace platform;
using platform::simulated::intrinsicSizeOf;
using platform::simulated::measureText;
using platform::simulated::startOfLastCharacter;

TEST(TextMetricsTest, GiveEveryCharacterTheSameWidth) {
  EXPECT_EQ(measureText("iiii", {.size = 20.0}), (Size{40.0, 25.0}));
  EXPECT_EQ(measureText("WWWW", {.size = 20.0}), (Size{40.0, 25.0}));
}

TEST(TextMetricsTest, CountCodePointsNotBytes) {
  EXPECT_EQ(measureText("Größe 漢字 🎈", {.size = 2.0}).width, 10.0);
}

TEST(TextMetricsTest, GiveAnEmptyTextTheHeightOfALine) {
  EXPECT_EQ(measureText("", {.size = 160.0}), (Size{0.0, 200.0}));
}

TEST(TextMetricsTest, TellFontsApart) {
  const auto width = [](FontFamily family, FontWeight weight) {
    return measureText("xx", {.family = family, .size = 16.0, .weight = weight}).width;
  };
  EXPECT_EQ(width(FontFamily::System, FontWeight::Regular), 16.0);
  EXPECT_EQ(width(FontFamily::System, FontWeight::Medium), 17.0);
  EXPECT_EQ(width(FontFamily::System, FontWeight::Semibold), 18.0);
  EXPECT_EQ(width(FontFamily::System, FontWeight::Heavy), 20.0);
  EXPECT_EQ(width(FontFamily::MonospacedSystem, FontWeight::Regular), 20.0);
}

TEST(TextMetricsTest, BreakLabelsAtSpaces) {
  const LabelControl label{.text = "aaaa bb cc dddd", .font = {.size = 2.0}, .wrapWidth = 7.0};
  EXPECT_EQ(intrinsicSizeOf(label), (Size{7.0, 5.0}));
}

TEST(TextMetricsTest, LeaveAWordThatIsTooLongOnALineOfItsOwn) {
  const LabelControl label{.text = "a bbbbbbbb c", .font = {.size = 2.0}, .wrapWidth = 4.0};
  EXPECT_EQ(intrinsicSizeOf(label), (Size{8.0, 7.5}));
}

TEST(TextMetricsTest, KeepALabelWithoutAWrapWidthOnOneLine) {
  const LabelControl label{.text = "aaaa bb cc dddd", .font = {.size = 2.0}};
  EXPECT_EQ(intrinsicSizeOf(label), (Size{15.0, 2.5}));
}

TEST(TextMetricsTest, SizeControlsByTheirText) {
  const double line = 16.25;  // of the system font
  EXPECT_EQ(intrinsicSizeOf(CheckBoxControl{.title = "ab"}), (Size{33.0, line + 2.0}));
  EXPECT_EQ(intrinsicSizeOf(PopUpControl{.items = {"a", "abcd", "ab"}}), (Size{66.0, line + 8.0}));
  EXPECT_EQ(intrinsicSizeOf(PushButtonControl{.title = "ab"}), (Size{45.0, line + 8.0}));
  EXPECT_EQ(intrinsicSizeOf(SelectableTextControl{.text = "ab", .font = {.size = 8.0}}), (Size{16.0, 16.0}));
}

TEST(TextMetricsTest, SizeControlsWithoutText) {
  EXPECT_EQ(intrinsicSizeOf(SliderControl{}), (Size{96.0, 20.0}));
  EXPECT_EQ(intrinsicSizeOf(ColorWellControl{}), (Size{44.0, 24.0}));
}

TEST(TextMetricsTest, FindTheLastCharacter) {
  EXPECT_EQ(startOfLastCharacter(""), 0U);
  EXPECT_EQ(startOfLastCharacter("a"), 0U);
  EXPECT_EQ(startOfLastCharacter("ab"), 1U);
  EXPECT_EQ(startOfLastCharacter("a🎈"), 1U);
}

}  // namespace
}  // namespace roomlattice::tests
