#pragma once

#include "platform/JsonCodec.h"

#include <optional>
#include <string>
#include <string_view>

namespace roomlattice {

enum class JsonLayout { Compact, Indented };

/// JSON (RFC 8259) of a value; nothing when it holds data, a number that is not finite or text that is not UTF-8.
/// Integers and doubles stay apart: a double always has a fraction or an exponent.
std::optional<std::string> toJson(const platform::Value& value, JsonLayout layout);

/// The value of one JSON document; nothing when it is not one, or is nested more than 500 levels deep.
std::optional<platform::Value> fromJson(std::string_view text);

/// The codec for backends whose system has none of its own.
class JsonTextCodec final : public platform::JsonCodec {
 public:
  std::optional<platform::Value::Data> encode(const platform::Value& value) const override;
  std::optional<platform::Value> decode(const platform::Value::Data& json) const override;
};

}  // namespace roomlattice
