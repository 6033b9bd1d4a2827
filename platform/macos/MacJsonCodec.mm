#import "platform/macos/MacJsonCodec.h"

#import "platform/macos/FoundationValues.h"

namespace roomlattice::platform::macos {

std::optional<Value::Data> MacJsonCodec::encode(const Value& value) const {
  @autoreleasepool {
    id object = toJsonObject(value);
    // A document that is no container goes through as the one element of an array. What is not valid must not get to
    // the encoder, which raises an exception for it.
    NSArray* wrapped = object == nil ? nil : [NSArray arrayWithObject:object];
    if (wrapped == nil || ![NSJSONSerialization isValidJSONObject:wrapped]) {
      return std::nullopt;
    }
    NSData* json = [NSJSONSerialization dataWithJSONObject:wrapped options:0 error:nullptr];
    if ([json length] < 2) {
      return std::nullopt;
    }
    const auto* bytes = static_cast<const std::byte*>([json bytes]);
    return Value::Data(bytes + 1, bytes + [json length] - 1);
  }
}

std::optional<Value> MacJsonCodec::decode(const Value::Data& json) const {
  @autoreleasepool {
    NSData* data = [NSData dataWithBytes:json.data() length:json.size()];
    id object = [NSJSONSerialization JSONObjectWithData:data options:NSJSONReadingAllowFragments error:nullptr];
    return object == nil ? std::nullopt : std::optional(toValue(object));
  }
}

}  // namespace roomlattice::platform::macos
