#include "platform/x11/connection/Properties.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::x11::bytesOf;
using platform::x11::rawTextsOf;
using platform::x11::textsOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string zero(1, '\0');

TEST(PropertiesTest, AreTextsThatEndInAZeroByteEach) {
  EXPECT_THAT(textsOf(""), IsEmpty());
  EXPECT_THAT(textsOf(zero), ElementsAre(""));
  EXPECT_THAT(textsOf("a" + zero + zero + "b" + zero), ElementsAre("a", "", "b"));
  EXPECT_THAT(textsOf("a" + zero + "b"), ElementsAre("a", "b"));
}

TEST(PropertiesTest, KeepWhatIsNotUtf8WhereTheyAreToBeWrittenAgain) {
  const std::string bytes = "\xff" + zero + "b" + zero;
  EXPECT_THAT(textsOf(bytes), ElementsAre("\xef\xbf\xbd", "b"));
  EXPECT_THAT(rawTextsOf(bytes), ElementsAre("\xff", "b"));
  EXPECT_EQ(bytesOf(rawTextsOf(bytes)), bytes);
}

TEST(PropertiesTest, EndTextsAtTheirFirstZeroByte) {
  EXPECT_EQ(bytesOf({"a" + zero + "b", "c"}), "a" + zero + "c" + zero);
  EXPECT_EQ(bytesOf({}), "");
}

}  // namespace
}  // namespace roomlattice::tests
