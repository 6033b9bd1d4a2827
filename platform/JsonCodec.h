#pragma once

#include "platform/Value.h"

#include <optional>

namespace roomlattice::platform {

/// The platform's JSON encoder and decoder (RFC 8259, UTF-8).
class JsonCodec {
 public:
  virtual ~JsonCodec() = default;

  /// Compact JSON; nothing when `value` holds something JSON has no form for: data, a number that is not finite, text
  /// that is not UTF-8. Doubles read back equal.
  virtual std::optional<Value::Data> encode(const Value& value) const = 0;

  /// The value the text stands for; nothing when it is not one JSON document. A number without fraction or exponent
  /// that fits is an integer, any other a double.
  virtual std::optional<Value> decode(const Value::Data& json) const = 0;
};

}  // namespace roomlattice::platform
