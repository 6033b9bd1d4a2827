#pragma once

#include "platform/JsonCodec.h"

namespace roomlattice::platform::macos {

/// NSJSONSerialization. It writes a double without a fraction like an integer, and reads it back as one.
class MacJsonCodec final : public JsonCodec {
 public:
  std::optional<Value::Data> encode(const Value& value) const override;
  std::optional<Value> decode(const Value::Data& json) const override;
};

}  // namespace roomlattice::platform::macos
