#include "tests/conformance/ConformanceTest.h"

#include <cmath>
#include <span>
#include <string_view>

namespace roomlattice::tests {
namespace {

using platform::Defaults;
using platform::JsonCodec;
using platform::Value;

constexpr const char* key = "ConformanceValue";

const Value values[] = {true,
                        false,
                        0,
                        1,
                        -7,
                        0.0,
                        160.0,
                        0.78,
                        "",
                        "Música \u2026",
                        Value::Data{std::byte{0}, std::byte{255}},
                        Value::Array{"a", 1, 0.5},
                        Value::Dictionary{{"uuid", "Mail"}}};

using DataDefaultsConformance = ConformanceTest;

TEST_F(DataDefaultsConformance, ReadsEveryTypeBackAsWritten) {
  Defaults& defaults = platform().defaults();
  for (const Value& value : values) {
    defaults.set(key, Value());
    defaults.set(key, value);
    EXPECT_TRUE(defaults.object(key) == value) << &value - values;
  }
}

TEST_F(DataDefaultsConformance, KeepsTheTypeOfEqualNumbers) {
  Defaults& defaults = platform().defaults();
  defaults.set(key, false);
  defaults.set(key, 0);
  EXPECT_TRUE(defaults.object(key) == Value(0));
}

TEST_F(DataDefaultsConformance, HasNothingUnderAKeyThatIsAbsentOrNull) {
  Defaults& defaults = platform().defaults();
  defaults.set(key, 1);
  defaults.set(key, Value());
  EXPECT_FALSE(defaults.object(key).has_value());
  EXPECT_FALSE(defaults.object("ConformanceNeverWritten").has_value());
}

class DataJsonConformance : public ConformanceTest {
 protected:
  std::optional<Value> decode(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return platform().json().decode(Value::Data(bytes.begin(), bytes.end()));
  }

  std::optional<Value> roundTrip(const Value& value) {
    const std::optional<Value::Data> json = platform().json().encode(value);
    return json ? platform().json().decode(*json) : std::nullopt;
  }
};

TEST_F(DataJsonConformance, ReadsDoublesBackEqual) {
  for (const double number : {0.1, 0.78, 1.0 / 3.0, -1e-9, 6.02214076e23}) {
    const std::optional<Value> read = roundTrip(Value::Array{number});
    ASSERT_TRUE(read && read->asArray() && read->asArray()->size() == 1U);
    EXPECT_EQ(read->asArray()->front().toDouble(), number);
  }
}

TEST_F(DataJsonConformance, KeepsTextsBooleansAndNulls) {
  const Value value =
      Value::Dictionary{{"text", "\"\\\n Música \u2026 \U0001F5A5"}, {"list", Value::Array{true, Value()}}};
  EXPECT_TRUE(roundTrip(value) == value);
}

TEST_F(DataJsonConformance, TellsIntegersFromDoubles) {
  EXPECT_TRUE(decode("[1, 0.5]") == Value(Value::Array{1, 0.5}));
}

TEST_F(DataJsonConformance, RefusesWhatJsonHasNoFormFor) {
  const JsonCodec& json = platform().json();
  EXPECT_FALSE(json.encode(Value::Data{std::byte{1}}).has_value());
  EXPECT_FALSE(json.encode(Value::Array{std::nan("")}).has_value());
  EXPECT_FALSE(json.encode(Value::Array{HUGE_VAL}).has_value());
  EXPECT_FALSE(json.encode("\xff").has_value());
}

TEST_F(DataJsonConformance, RefusesBrokenDocuments) {
  for (const char* text : {"", "{", "nope", "{\"a\"}"}) {
    EXPECT_FALSE(decode(text).has_value()) << text;
  }
}

TEST_F(DataJsonConformance, RefusesTrailingText) {
  EXPECT_FALSE(decode("[1] x").has_value());
  EXPECT_FALSE(decode("[1,]").has_value());
}

}  // namespace
}  // namespace roomlattice::tests
