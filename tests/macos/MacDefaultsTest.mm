#import "platform/macos/MacDefaults.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

namespace roomlattice::platform::macos {
namespace {

const char* const key = "MacDefaultsTest";

/// The key is absent at first: GNUstep does not write a number over a Boolean that it takes for equal.
class MacDefaultsTypesTest : public testing::TestWithParam<Value> {
 protected:
  MacDefaultsTypesTest() { [[NSUserDefaults standardUserDefaults] removeObjectForKey:@"MacDefaultsTest"]; }
};

TEST_P(MacDefaultsTypesTest, ReadsBackAsItWasWritten) {
  MacDefaults defaults;
  defaults.set(key, GetParam());
  EXPECT_EQ(defaults.object(key), GetParam());
}

TEST_P(MacDefaultsTypesTest, ReadsBackFromTheStoreOnDisk) {
  MacDefaults().set(key, GetParam());
  [[NSUserDefaults standardUserDefaults] synchronize];
  [NSUserDefaults resetStandardUserDefaults];
  EXPECT_EQ(MacDefaults().object(key), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    MacDefaults, MacDefaultsTypesTest,
    testing::Values(Value(true), Value(false), Value(0), Value(1), Value(-7), Value(std::int64_t{1} << 62), Value(0.0),
                    Value(1.0), Value(160.0), Value(0.78), Value(""), Value("Música \u2026"),
                    Value(Value::Data{std::byte{0}, std::byte{255}, std::byte{'{'}}), Value(Value::Data{}),
                    Value(Value::Array{"a", 1, true, 0.5, Value::Array{}}),
                    Value(Value::Dictionary{{"uuid", "Mail"}, {"", Value::Dictionary{{"x", 2}}}})));

TEST(MacDefaultsTest, HasNothingUnderAnAbsentKey) {
  EXPECT_EQ(MacDefaults().object("never written"), std::nullopt);
}

TEST(MacDefaultsTest, RemovesAKeyThatIsSetToNull) {
  MacDefaults defaults;
  defaults.set(key, "something");
  defaults.set(key, Value());
  EXPECT_EQ(defaults.object(key), std::nullopt);
}

TEST(MacDefaultsTest, LeavesOutNullsWithinAValue) {
  MacDefaults defaults;
  defaults.set(key, Value::Array{1, Value(), 2});
  EXPECT_EQ(defaults.object(key), Value(Value::Array{1, 2}));
}

TEST(MacDefaultsTest, SeesWhatOthersWrote) {
  [[NSUserDefaults standardUserDefaults] setBool:NO forKey:@"MacDefaultsTest"];
  EXPECT_EQ(MacDefaults().object(key), Value(false));
}

TEST(MacDefaultsTest, ReadsObjectsWithoutAFormAsNull) {
  [[NSUserDefaults standardUserDefaults] setObject:[NSDate date] forKey:@"MacDefaultsTest"];
  EXPECT_EQ(MacDefaults().object(key), Value());
}

}  // namespace
}  // namespace roomlattice::platform::macos
