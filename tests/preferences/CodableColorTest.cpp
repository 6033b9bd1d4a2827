#include "preferences/CodableColor.h"

#include <gtest/gtest.h>

namespace roomlattice {
namespace {

using platform::Value;

Value::Dictionary color(const Value& red) {
  return {{"red", red}, {"green", 0.2}, {"blue", 0.3}, {"alpha", 1.0}};
}

Value entry(const Value& foreground, const Value& background) {
  return Value::Dictionary{{"foreground", foreground}, {"background", background}};
}

TEST(CodableColorTest, EncodesToExactlyItsFieldsAndBack) {
  const SpaceColors colors{{"A", {{0.1, 0.2, 0.3, 1.0}, {0.4, 0.5, 0.6, 0.5}}}};
  const Value stored = encode(colors);
  EXPECT_EQ(stored, Value(Value::Dictionary{
                        {"A", entry(Value::Dictionary{{"red", 0.1}, {"green", 0.2}, {"blue", 0.3}, {"alpha", 1.0}},
                                    Value::Dictionary{{"red", 0.4}, {"green", 0.5}, {"blue", 0.6}, {"alpha", 0.5}})}}));
  EXPECT_EQ(decodeSpaceColors(stored), colors);
}

TEST(CodableColorTest, ReadsWholeNumbersAsComponents) {
  const auto colors = decodeSpaceColors(Value::Dictionary{{"A", entry(color(1), color(0))}});
  ASSERT_TRUE(colors);
  EXPECT_EQ(colors->at("A").foreground, (CodableColor{1.0, 0.2, 0.3, 1.0}));
}

TEST(CodableColorTest, PassesOverKeysItDoesNotKnow) {
  Value::Dictionary more = color(0.1);
  more["gamma"] = 2.2;
  EXPECT_TRUE(decodeSpaceColors(Value::Dictionary{{"A", entry(more, color(0.1))}}));
}

TEST(CodableColorTest, RefusesTheWholeDocumentForOneBadEntry) {
  Value::Dictionary noAlpha = color(0.1);
  noAlpha.erase("alpha");
  const Value good = entry(color(0.1), color(0.2));
  for (const Value& bad : {entry(noAlpha, color(0.1)), entry(color(0.1), noAlpha), entry(color("0.1"), color(0.1)),
                           entry(color(true), color(0.1)), entry(color(Value()), color(0.1)), entry(1.0, color(0.1)),
                           Value(Value::Dictionary{{"foreground", color(0.1)}}), Value("red"), Value()}) {
    EXPECT_FALSE(decodeSpaceColors(Value::Dictionary{{"A", good}, {"B", bad}}));
  }
}

TEST(CodableColorTest, RefusesADocumentThatIsNoDictionary) {
  EXPECT_FALSE(decodeSpaceColors(Value::Array{}));
  EXPECT_FALSE(decodeSpaceColors(Value()));
}

}  // namespace
}  // namespace roomlattice
