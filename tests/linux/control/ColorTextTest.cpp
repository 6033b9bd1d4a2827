#include "platform/linux/control/ColorText.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::ColorSpace;
using platform::linux::colorFrom;
using platform::linux::colorText;

TEST(ColorTextTest, IsHexadecimal) {
  EXPECT_EQ(colorText({1.0, 0.5, 0.0}), "#ff8000");
  EXPECT_EQ(colorText({-1.0, 2.0, 0.001}), "#00ff00");
  EXPECT_EQ(colorText({1.0, 1.0, 1.0, 1.0, ColorSpace::Unconvertible}), "#000000");
}

TEST(ColorTextTest, IsReadBack) {
  for (const char* text : {"#000000", "#ff8000", "#0a0b0c"}) {
    ASSERT_TRUE(colorFrom(text)) << text;
    EXPECT_EQ(colorText(*colorFrom(text)), text);
  }
  EXPECT_EQ(colorFrom("#FFFFFF"), Color::white());
  for (const char* text : {"", "#", "ff8000", "#ff800", "#ff80000", "#ff800g", "#+1+1+1"}) {
    EXPECT_FALSE(colorFrom(text)) << text;
  }
}

}  // namespace
}  // namespace roomlattice::tests
