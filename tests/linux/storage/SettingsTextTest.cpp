#include "platform/linux/storage/SettingsText.h"

#include <gtest/gtest.h>
#include <limits>

namespace roomlattice::platform::linux {
namespace {

Value::Data data(const std::string& bytes) {
  Value::Data result;
  for (const char byte : bytes) {
    result.push_back(static_cast<std::byte>(byte));
  }
  return result;
}

struct Setting {
  const char* name;
  Value value;
};

class SettingsTextRoundTripTest : public ::testing::TestWithParam<Setting> {};

TEST_P(SettingsTextRoundTripTest, ReadsBackAsItWasWritten) {
  const Value::Dictionary settings{{"key", GetParam().value}};
  const auto text = toSettingsText(settings);
  ASSERT_TRUE(text);
  EXPECT_EQ(fromSettingsText(*text), settings) << *text;
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, SettingsTextRoundTripTest,
    ::testing::Values(Setting{"True", true}, Setting{"IntegerOne", 1}, Setting{"DoubleOne", 1.0},
                      Setting{"DoubleThird", 1.0 / 3.0},
                      Setting{"LeastInteger", std::numeric_limits<std::int64_t>::min()},
                      Setting{"LeastDouble", std::numeric_limits<double>::denorm_min()}, Setting{"Null", Value()},
                      Setting{"EmptyString", ""}, Setting{"String", "Büro \"1\"\n"},
                      Setting{"ZeroByteInString", std::string("a\0b", 3)}, Setting{"EmptyData", data("")},
                      Setting{"TextData", data("{\"a\": 1}")}, Setting{"BinaryData", data("\xff\x00\xfe")},
                      Setting{"SurrogateData", data("\xed\xa0\x80")},
                      Setting{"Array", Value::Array{1, "two", data("three"), Value::Array{}}},
                      Setting{"Dictionary", Value::Dictionary{{"a", 1}, {"$b", data("x")}}},
                      Setting{"EmptyDictionary", Value::Dictionary{}},
                      Setting{"DictionaryLikeText", Value::Dictionary{{"$text", "not data"}}},
                      Setting{"DictionaryLikeData", Value::Dictionary{{"$data", "AAAA"}}},
                      Setting{"DictionaryLikeDictionary",
                              Value::Dictionary{{"$dictionary", Value::Dictionary{{"$text", "x"}}}}},
                      Setting{"DictionaryOfUnknownForm", Value::Dictionary{{"$later", data("x")}}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(SettingsTextTest, ShowsTextDataAsText) {
  EXPECT_EQ(toSettingsText({{"SpaceColors", data("{}")}}), "{\n  \"SpaceColors\": {\n    \"$text\": \"{}\"\n  }\n}\n");
}

TEST(SettingsTextTest, ShowsOtherDataAsBase64) {
  EXPECT_EQ(toSettingsText({{"x", data("\xff")}}), "{\n  \"x\": {\n    \"$data\": \"/w==\"\n  }\n}\n");
}

TEST(SettingsTextTest, KeepsAMalformedFormAsTheDictionaryItIs) {
  const Value::Dictionary expected{{"a", Value::Dictionary{{"$data", "!"}}}, {"b", Value::Dictionary{{"$text", 5}}}};
  EXPECT_EQ(fromSettingsText(R"({"a": {"$data": "!"}, "b": {"$text": 5}})"), expected);
}

TEST(SettingsTextTest, TakesTheOutermostObjectForSettingsWhateverItsKey) {
  const Value::Dictionary settings{{"$text", "x"}};
  const auto text = toSettingsText(settings);
  ASSERT_TRUE(text);
  EXPECT_EQ(fromSettingsText(*text), settings);
}

TEST(SettingsTextTest, HasNoFormForWhatIsNotANumber) {
  EXPECT_FALSE(toSettingsText({{"x", std::numeric_limits<double>::quiet_NaN()}}));
}

TEST(SettingsTextTest, IsAnObject) {
  for (const char* text : {"", " ", "[]", "1", "null", "{", "{}{}", "{\"a\": 1e999}", "{\"a\": \"\xff\"}"}) {
    EXPECT_FALSE(fromSettingsText(text)) << text;
  }
}

}  // namespace
}  // namespace roomlattice::platform::linux
