#include "platform/Color.h"

#include <gtest/gtest.h>

namespace roomlattice::platform {
namespace {

TEST(ColorTest, ConvertsToSRGBOnlyWhereItCan) {
  const Color plain{0.1, 0.2, 0.3, 0.4};
  EXPECT_EQ(plain.inSRGB(), plain);
  EXPECT_EQ((Color{0.1, 0.2, 0.3, 0.4, ColorSpace::Unconvertible}).inSRGB(), std::nullopt);
}

TEST(ColorTest, ChangesNothingButItsOpacity) {
  EXPECT_EQ((Color{0.1, 0.2, 0.3, 1.0, ColorSpace::Unconvertible}).withAlpha(0.5),
            (Color{0.1, 0.2, 0.3, 0.5, ColorSpace::Unconvertible}));
}

}  // namespace
}  // namespace roomlattice::platform
