#include "platform/Value.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <utility>

namespace roomlattice::platform {
namespace {

TEST(ValueTest, IsNullUntilGivenSomething) {
  EXPECT_TRUE(Value().isNull());
  EXPECT_FALSE(Value(false).isNull());
  EXPECT_FALSE(Value("").isNull());
}

TEST(ValueTest, ReadsAsTheTypeItWasMadeOfAndNoOther) {
  const Value values[] = {
      true, 7, 0.5, "text", Value::Data{std::byte{1}}, Value::Array{1}, Value::Dictionary{{"a", 1}}};
  for (std::size_t index = 0; index < std::size(values); ++index) {
    const Value& value = values[index];
    EXPECT_EQ(value.asBool() != nullptr, index == 0) << index;
    EXPECT_EQ(value.asInteger() != nullptr, index == 1) << index;
    EXPECT_EQ(value.asDouble() != nullptr, index == 2) << index;
    EXPECT_EQ(value.asString() != nullptr, index == 3) << index;
    EXPECT_EQ(value.asData() != nullptr, index == 4) << index;
    EXPECT_EQ(value.asArray() != nullptr, index == 5) << index;
    EXPECT_EQ(value.asDictionary() != nullptr, index == 6) << index;
  }
}

TEST(ValueTest, KeepsWhatItWasGiven) {
  EXPECT_EQ(*Value(std::numeric_limits<std::int64_t>::min()).asInteger(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(*Value("Größe").asString(), "Größe");
  EXPECT_EQ(*Value(0.1).asDouble(), 0.1);
}

TEST(ValueTest, TellsEqualNumbersOfDifferentTypesApart) {
  EXPECT_EQ(Value(1), Value(std::int64_t{1}));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value(true));
}

TEST(ValueTest, ConvertsNumbersButNoBooleansToDoubles) {
  EXPECT_EQ(Value(3).toDouble(), 3.0);
  EXPECT_EQ(Value(3.5).toDouble(), 3.5);
  EXPECT_EQ(Value(true).toDouble(), std::nullopt);
  EXPECT_EQ(Value("3").toDouble(), std::nullopt);
  EXPECT_EQ(Value().toDouble(), std::nullopt);
}

struct BooleanReading {
  Value value;
  std::optional<bool> expected;
};

TEST(ValueTest, TakesBooleansAndNumbersThatAreZeroOrOneForBooleans) {
  const BooleanReading readings[] = {
      {true, true},
      {false, false},
      {1, true},
      {0, false},
      {1.0, true},
      {0.0, false},
      {-0.0, false},
      {2, std::nullopt},
      {-1, std::nullopt},
      {0.5, std::nullopt},
      {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
      {"true", std::nullopt},
      {{}, std::nullopt},
  };
  for (std::size_t row = 0; row < std::size(readings); ++row) {
    EXPECT_EQ(readings[row].value.toBool(), readings[row].expected) << "row " << row;
  }
}

TEST(ValueTest, ReadsAnArrayOfStringsAsAWholeOrNotAtAll) {
  EXPECT_EQ(Value(Value::Array{"a", "b"}).toStrings(), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Value(Value::Array{}).toStrings(), std::vector<std::string>());
  EXPECT_EQ(Value(Value::Array{"a", 1}).toStrings(), std::nullopt);
  EXPECT_EQ(Value("a").toStrings(), std::nullopt);
}

TEST(ValueTest, ReadsADictionaryOfStringsAsAWholeOrNotAtAll) {
  EXPECT_EQ(Value(Value::Dictionary{{"a", "x"}}).toStringDictionary(),
            (std::map<std::string, std::string>{{"a", "x"}}));
  EXPECT_EQ(Value(Value::Dictionary{{"a", "x"}, {"b", {}}}).toStringDictionary(), std::nullopt);
  EXPECT_EQ(Value(Value::Array{}).toStringDictionary(), std::nullopt);
}

TEST(ValueTest, ReadsAnArrayOfDictionariesAsAWholeOrNotAtAll) {
  const Value displays = Value::Array{Value::Dictionary{{"a", 1}}, Value::Dictionary{}};
  const auto dictionaries = displays.toDictionaries();
  ASSERT_TRUE(dictionaries.has_value());
  ASSERT_EQ(dictionaries->size(), 2U);
  EXPECT_EQ(dictionaries->front(), displays.asArray()->front().asDictionary());
  EXPECT_EQ(Value(Value::Array{Value::Dictionary{}, 1}).toDictionaries(), std::nullopt);
  EXPECT_EQ(Value(Value::Dictionary{}).toDictionaries(), std::nullopt);
}

TEST(ValueTest, SharesItsElementsWithItsCopies) {
  const Value array = Value::Array{"a", Value::Dictionary{{"b", 1}}};
  const Value copy = array;
  EXPECT_EQ(copy.asArray(), array.asArray());
  EXPECT_EQ(copy, array);
  Value::Array changed = *copy.asArray();
  changed.front() = "c";
  EXPECT_NE(Value(changed), array);
  EXPECT_EQ(array, Value(Value::Array{"a", Value::Dictionary{{"b", 1}}}));
}

TEST(ValueTest, SharesItsDataWithItsCopies) {
  const Value data = Value::Data{std::byte{1}, std::byte{2}};
  const Value copy = data;
  EXPECT_EQ(copy.asData(), data.asData());
  EXPECT_EQ(copy, Value(Value::Data{std::byte{1}, std::byte{2}}));
  EXPECT_NE(copy, Value(Value::Data{std::byte{1}}));
}

TEST(ValueTest, HoldsNothingReadableOnceItWasMovedFrom) {
  Value from = Value::Array{"a"};
  const Value to = std::move(from);
  EXPECT_EQ(from.asArray(), nullptr);  // NOLINT(bugprone-use-after-move)
  EXPECT_NE(from, to);
  EXPECT_EQ(to, Value(Value::Array{"a"}));
}

TEST(ValueTest, FindsEntriesOfADictionaryByKey) {
  const Value::Dictionary dictionary{{"key", "value"}, {"null", {}}};
  ASSERT_NE(find(dictionary, "key"), nullptr);
  EXPECT_EQ(*find(dictionary, "key"), Value("value"));
  ASSERT_NE(find(dictionary, "null"), nullptr);
  EXPECT_TRUE(find(dictionary, "null")->isNull());
  EXPECT_EQ(find(dictionary, "Key"), nullptr);
}

}  // namespace
}  // namespace roomlattice::platform
