#include "platform/linux/control/ControlNames.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::controlNameOfDisplay;

TEST(ControlNamesTest, AreThoseOfDisplays) {
  const std::string start = "org.roomlattice.Roomlattice.Display";
  EXPECT_EQ(controlNameOfDisplay(":0"), start + "_0_0");
  EXPECT_EQ(controlNameOfDisplay(":0.0"), start + "_0_0");
  EXPECT_EQ(controlNameOfDisplay("unix:0"), start + "_0_0");
  EXPECT_EQ(controlNameOfDisplay(":10.1"), start + "_10_1");
  EXPECT_EQ(controlNameOfDisplay("localhost:10"), start + "localhost_10_0");
  EXPECT_EQ(controlNameOfDisplay("a.b-c:1"), start + "a_2eb_2dc_1_0");
  EXPECT_EQ(controlNameOfDisplay("fe80::1:2"), start + "fe80_3a_3a1_2_0");
}

TEST(ControlNamesTest, AreNoneForWhatIsNoDisplay) {
  for (const char* text : {"", "0", ":", ":x", ":0.", ":0.x", ":-1", ":0 ", ":0.0.0"}) {
    EXPECT_EQ(controlNameOfDisplay(text), "") << text;
  }
}

}  // namespace
}  // namespace roomlattice::tests
