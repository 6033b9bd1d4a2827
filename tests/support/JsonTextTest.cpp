#include "support/JsonText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace roomlattice::support {
namespace {

using platform::Value;

std::optional<std::string> compact(const Value& value) {
  return toJson(value, JsonLayout::Compact);
}

std::string nestedArrays(std::size_t levels, const std::string& innermost = {}) {
  return std::string(levels, '[') + innermost + std::string(levels, ']');
}

TEST(JsonTextTest, WritesCompactDocuments) {
  const Value value = Value::Dictionary{{"a", Value::Array{1, 2.5, true, "x", {}}}, {"b", Value::Dictionary{}}};
  EXPECT_EQ(compact(value), R"({"a":[1,2.5,true,"x",null],"b":{}})");
}

TEST(JsonTextTest, WritesIndentedDocumentsThatReadTheSame) {
  const Value value = Value::Dictionary{{"a", Value::Array{1}}};
  const auto text = toJson(value, JsonLayout::Indented);
  ASSERT_TRUE(text.has_value());
  EXPECT_NE(text->find('\n'), std::string::npos);
  EXPECT_EQ(fromJson(*text), value);
}

TEST(JsonTextTest, KeepsIntegersAndDoublesApart) {
  EXPECT_EQ(compact(1), "1");
  EXPECT_EQ(compact(1.0), "1.0");
  EXPECT_EQ(fromJson("1"), Value(1));
  EXPECT_EQ(fromJson("1.0"), Value(1.0));
  EXPECT_EQ(fromJson("1e2"), Value(100.0));
  EXPECT_EQ(fromJson("-0.0"), Value(-0.0));
}

TEST(JsonTextTest, ReadsWholeNumbersThatDoNotFitAsDoubles) {
  EXPECT_EQ(fromJson("9223372036854775807"), Value(std::numeric_limits<std::int64_t>::max()));
  EXPECT_EQ(fromJson("9223372036854775808"), Value(9223372036854775808.0));
  EXPECT_EQ(fromJson("-9223372036854775808"), Value(std::numeric_limits<std::int64_t>::min()));
  EXPECT_EQ(fromJson("-9223372036854775809"), Value(-9223372036854775809.0));
  EXPECT_EQ(fromJson("123456789012345678901234567890"), Value(123456789012345678901234567890.0));
}

TEST(JsonTextTest, ReadsDoublesBackEqual) {
  const double numbers[] = {0.0,
                            -0.0,
                            0.1,
                            1.0 / 3.0,
                            0.78,
                            160.0,
                            1e300,
                            -1e-300,
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::min(),
                            std::numeric_limits<double>::denorm_min(),
                            std::numeric_limits<double>::epsilon(),
                            9007199254740993.0};
  for (const double number : numbers) {
    const auto text = compact(number);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(fromJson(*text), Value(number)) << *text;
  }
}

TEST(JsonTextTest, DoesNotWriteWhatHasNoForm) {
  const Value values[] = {Value(std::numeric_limits<double>::quiet_NaN()),
                          Value(std::numeric_limits<double>::infinity()),
                          Value(-std::numeric_limits<double>::infinity()),
                          Value(Value::Data{std::byte{1}}),
                          Value("\xff"),
                          Value("\xc3")};
  for (const Value& value : values) {
    EXPECT_EQ(compact(value), std::nullopt);
    EXPECT_EQ(compact(Value::Array{1, value}), std::nullopt);
    EXPECT_EQ(compact(Value::Dictionary{{"key", value}}), std::nullopt);
  }
}

TEST(JsonTextTest, DoesNotWriteKeysThatAreNotUTF8) {
  EXPECT_EQ(compact(Value::Dictionary{{"\xff", 1}}), std::nullopt);
}

TEST(JsonTextTest, WritesTextOfEveryKindSoThatItReadsBackEqual) {
  const std::string text = std::string("quote \" backslash \\ newline \n tab \t Größe 漢字 🎈 null ") + '\0' + '\x01';
  const auto written = compact(text);
  ASSERT_TRUE(written.has_value());
  EXPECT_EQ(fromJson(*written), Value(text));
}

TEST(JsonTextTest, ReadsEscapedCharacters) {
  EXPECT_EQ(fromJson(R"("\u00e9\ud83c\udf88")"), Value("é🎈"));
}

TEST(JsonTextTest, RefusesWhatIsNotOneDocument) {
  const char* texts[] = {"",
                         " ",
                         "{",
                         "[1,]",
                         "{\"a\":1,}",
                         "{a:1}",
                         "'a'",
                         "nul",
                         "NaN",
                         "Infinity",
                         "01",
                         "1.",
                         ".5",
                         "+1",
                         "1e999",
                         "[1] x",
                         "{} {}",
                         "1 2",
                         "\"\xff\"",
                         "\"\xed\xa0\x80\"",
                         "\"\\ud83c\"",
                         "\"a\nb\"",
                         "// a\n1"};
  for (const char* text : texts) {
    EXPECT_EQ(fromJson(text), std::nullopt) << text;
  }
}

TEST(JsonTextTest, AllowsBlanksAroundADocument) {
  EXPECT_EQ(fromJson(" \t\r\n[ 1 ] \n"), Value(Value::Array{1}));
}

TEST(JsonTextTest, ReadsNestingUpToItsLimitAndNoDeeper) {
  EXPECT_TRUE(fromJson(nestedArrays(500)).has_value());
  EXPECT_TRUE(fromJson(nestedArrays(500, "1")).has_value());
  EXPECT_TRUE(fromJson(nestedArrays(499, "{\"a\":1}")).has_value());
  EXPECT_EQ(fromJson(nestedArrays(500, "{}")), std::nullopt);
  EXPECT_EQ(fromJson(nestedArrays(501)), std::nullopt);
}

TEST(JsonTextTest, RefusesDepthBombsOfArraysAndObjects) {
  constexpr std::size_t levels = 1'000'000;
  EXPECT_EQ(fromJson(nestedArrays(levels)), std::nullopt);
  EXPECT_EQ(fromJson(std::string(levels, '[')), std::nullopt);
  std::string objects;
  for (std::size_t level = 0; level < 100'000; ++level) {
    objects += "{\"a\":";
  }
  EXPECT_EQ(fromJson(objects), std::nullopt);
}

TEST(JsonTextTest, ReadsAHundredThousandObjectsInOne) {
  // Where each of them looks at all before it, this does not end in time.
  std::string text = "{";
  for (int number = 0; number < 100'000; ++number) {
    text += (number == 0 ? "" : ",") + ("\"" + std::to_string(number)) + "\":{}";
  }
  const auto read = fromJson(text + "}");
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->asDictionary()->size(), 100'000U);
}

TEST(JsonTextTest, KeepsTheLastOfMembersThatHaveTheSameKey) {
  EXPECT_EQ(fromJson(R"({"a":1,"b":2,"a":{"c":3}})"),
            Value(Value::Dictionary{{"a", Value::Dictionary{{"c", 3}}}, {"b", 2}}));
}

TEST(JsonTextCodecTest, DecodesWhatItEncoded) {
  const JsonTextCodec codec;
  const Value value = Value::Dictionary{{"red", 0.1}, {"count", 3}, {"name", "Größe"}};
  const auto data = codec.encode(value);
  ASSERT_TRUE(data.has_value());
  EXPECT_EQ(codec.decode(*data), value);
}

TEST(JsonTextCodecTest, AnswersWithNothingWhereThereIsNoForm) {
  const JsonTextCodec codec;
  EXPECT_EQ(codec.encode(std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(codec.decode({}), std::nullopt);
}

}  // namespace
}  // namespace roomlattice::support
