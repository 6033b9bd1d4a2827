#import "platform/macos/MacDefaults.h"

#import "platform/macos/FoundationValues.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {

std::optional<Value> MacDefaults::object(const std::string& key) const {
  @autoreleasepool {
    id object = [[NSUserDefaults standardUserDefaults] objectForKey:toNSString(key)];
    return object == nil ? std::nullopt : std::optional(toValue(object));
  }
}

void MacDefaults::set(const std::string& key, const Value& value) {
  @autoreleasepool {
    id object = toPropertyList(value);
    if (object == nil) {
      [[NSUserDefaults standardUserDefaults] removeObjectForKey:toNSString(key)];
    } else {
      [[NSUserDefaults standardUserDefaults] setObject:object forKey:toNSString(key)];
    }
  }
}

}  // namespace roomlattice::platform::macos
