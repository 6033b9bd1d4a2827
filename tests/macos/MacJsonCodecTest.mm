#import "platform/macos/MacJsonCodec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <span>
#include <string_view>

namespace roomlattice::platform::macos {
namespace {

Value::Data bytes(std::string_view text) {
  const auto span = std::as_bytes(std::span(text));
  return {span.begin(), span.end()};
}

std::string text(const std::optional<Value::Data>& data) {
  return data ? std::string(reinterpret_cast<const char*>(data->data()), data->size()) : "nothing";
}

TEST(MacJsonCodecTest, WritesCompactDocuments) {
  const Value value(Value::Array{1, true, Value(), "x"});
  EXPECT_EQ(text(MacJsonCodec().encode(value)), R"([1,true,null,"x"])");
}

TEST(MacJsonCodecTest, WritesDocumentsThatAreNoContainers) {
  EXPECT_EQ(text(MacJsonCodec().encode("x")), R"("x")");
  EXPECT_EQ(text(MacJsonCodec().encode(7)), "7");
}

class MacJsonCodecUnwritableTest : public testing::TestWithParam<Value> {};

TEST_P(MacJsonCodecUnwritableTest, GivesNothing) {
  EXPECT_EQ(MacJsonCodec().encode(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(MacJsonCodec, MacJsonCodecUnwritableTest,
                         testing::Values(Value(Value::Data{std::byte{1}}), Value(std::nan("")), Value(HUGE_VAL),
                                         Value("\xff"), Value(Value::Array{Value(Value::Data{})}),
                                         Value(Value::Dictionary{{"\xc3", 1}}),
                                         Value(Value::Dictionary{{"a", Value::Array{std::nan("")}}})));

class MacJsonCodecRoundTripTest : public testing::TestWithParam<Value> {};

TEST_P(MacJsonCodecRoundTripTest, ReadsBackEqual) {
  const MacJsonCodec codec;
  const std::optional<Value::Data> json = codec.encode(GetParam());
  ASSERT_TRUE(json);
  EXPECT_EQ(codec.decode(*json), GetParam()) << text(json);
}

INSTANTIATE_TEST_SUITE_P(
    MacJsonCodec, MacJsonCodecRoundTripTest,
    testing::Values(Value(Value::Dictionary{}), Value(Value::Array{0.1, 0.2, 0.78, 1.0 / 3.0, -1e-9, 6.02214076e23}),
                    Value(Value::Array{true, false, Value()}),
                    Value(Value::Array{"", "\"\\/\b\n\t", "Música \u2026 \U0001F5A5", "\x01"}),
                    Value(Value::Dictionary{
                        {"u-1", Value::Dictionary{{"foreground", Value::Dictionary{{"red", 0.5}}}}}})));

class MacJsonCodecMalformedTest : public testing::TestWithParam<const char*> {};

TEST_P(MacJsonCodecMalformedTest, GivesNothing) {
  EXPECT_EQ(MacJsonCodec().decode(bytes(GetParam())), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(MacJsonCodec, MacJsonCodecMalformedTest,
                         testing::Values("", "{", "{\"a\"}", "nope", "{'a':1}", "\xff\xfe"));

// GNUstep's parser makes a double of every number, so the kind is not looked at.
TEST(MacJsonCodecTest, ReadsNumbersOfEveryForm) {
  const std::optional<Value> value = MacJsonCodec().decode(bytes("[1, 0.5, 2e2, -3]"));
  ASSERT_TRUE(value && value->asArray());
  std::vector<std::optional<double>> numbers;
  for (const Value& element : *value->asArray()) {
    numbers.push_back(element.toDouble());
  }
  EXPECT_THAT(numbers, testing::ElementsAre(1.0, 0.5, 200.0, -3.0));
}

}  // namespace
}  // namespace roomlattice::platform::macos
