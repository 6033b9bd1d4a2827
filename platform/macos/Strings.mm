#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {

std::string toString(NSString* string) {
  NSData* utf8 = [string dataUsingEncoding:NSUTF8StringEncoding];
  return {static_cast<const char*>([utf8 bytes]), [utf8 length]};
}

NSString* toNSStringOrNil(std::string_view text) {
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
}

NSString* toNSString(std::string_view text) {
  NSString* string = toNSStringOrNil(text);
  return string == nil ? @"" : string;
}

}  // namespace roomlattice::platform::macos
