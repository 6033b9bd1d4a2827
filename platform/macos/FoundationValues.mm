#import "platform/macos/FoundationValues.h"

#import "platform/macos/Strings.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace roomlattice::platform::macos {
namespace {

/// A Boolean is a number of its own: one of two objects that stand for nothing else.
bool isBoolean(NSNumber* number) {
  return number == [NSNumber numberWithBool:YES] || number == [NSNumber numberWithBool:NO];
}

Value numberValue(NSNumber* number) {
  if (isBoolean(number)) {
    return Value(static_cast<bool>([number boolValue]));
  }
  const std::string_view type = [number objCType];
  constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
  const bool isUnsigned64 = type == @encode(unsigned long long) || type == @encode(unsigned long);
  const bool isTooLarge = isUnsigned64 && [number unsignedLongLongValue] > largest;
  if (isTooLarge || type == @encode(double) || type == @encode(float)) {
    return Value([number doubleValue]);
  }
  return Value(std::int64_t{[number longLongValue]});
}

Value dataValue(NSData* data) {
  const auto* bytes = static_cast<const std::byte*>([data bytes]);
  return Value(Value::Data(bytes, bytes + [data length]));
}

Value arrayValue(NSArray* objects) {
  Value::Array array;
  for (id object in objects) {
    array.push_back(toValue(object));
  }
  return Value(std::move(array));
}

Value dictionaryValue(NSDictionary* objects) {
  Value::Dictionary dictionary;
  for (id key in objects) {
    if ([key isKindOfClass:[NSString class]]) {
      dictionary.emplace(toString(key), toValue([objects objectForKey:key]));
    }
  }
  return Value(std::move(dictionary));
}

enum class Target { PropertyList, Json };

id toObject(const Value& value, Target target);

NSArray* toNSArray(const Value::Array& array, Target target) {
  NSMutableArray* objects = [NSMutableArray arrayWithCapacity:array.size()];
  for (const Value& element : array) {
    id object = toObject(element, target);
    if (object != nil) {
      [objects addObject:object];
    } else if (target == Target::Json) {
      return nil;
    }
  }
  return objects;
}

NSDictionary* toNSDictionary(const Value::Dictionary& dictionary, Target target) {
  NSMutableDictionary* objects = [NSMutableDictionary dictionaryWithCapacity:dictionary.size()];
  for (const auto& [key, element] : dictionary) {
    NSString* name = toNSStringOrNil(key);
    id object = toObject(element, target);
    if (name != nil && object != nil) {
      [objects setObject:object forKey:name];
    } else if (target == Target::Json) {
      return nil;
    }
  }
  return objects;
}

NSNumber* toNSNumber(double number, Target target) {
  return target == Target::PropertyList || std::isfinite(number) ? [NSNumber numberWithDouble:number] : nil;
}

NSData* toNSData(const Value::Data& data, Target target) {
  return target == Target::PropertyList ? [NSData dataWithBytes:data.data() length:data.size()] : nil;
}

id toObject(const Value& value, Target target) {
  if (const bool* flag = value.asBool()) {
    return [NSNumber numberWithBool:*flag];
  }
  if (const std::int64_t* number = value.asInteger()) {
    return [NSNumber numberWithLongLong:*number];
  }
  if (const double* number = value.asDouble()) {
    return toNSNumber(*number, target);
  }
  if (const std::string* string = value.asString()) {
    return toNSStringOrNil(*string);
  }
  if (const Value::Data* data = value.asData()) {
    return toNSData(*data, target);
  }
  if (const Value::Array* array = value.asArray()) {
    return toNSArray(*array, target);
  }
  if (const Value::Dictionary* dictionary = value.asDictionary()) {
    return toNSDictionary(*dictionary, target);
  }
  return target == Target::Json ? [NSNull null] : nil;
}

}  // namespace

Value toValue(id object) {
  if ([object isKindOfClass:[NSNumber class]]) {
    return numberValue(object);
  }
  if ([object isKindOfClass:[NSString class]]) {
    return Value(toString(object));
  }
  if ([object isKindOfClass:[NSData class]]) {
    return dataValue(object);
  }
  if ([object isKindOfClass:[NSArray class]]) {
    return arrayValue(object);
  }
  if ([object isKindOfClass:[NSDictionary class]]) {
    return dictionaryValue(object);
  }
  return {};
}

id toPropertyList(const Value& value) {
  return toObject(value, Target::PropertyList);
}

id toJsonObject(const Value& value) {
  return toObject(value, Target::Json);
}

}  // namespace roomlattice::platform::macos
