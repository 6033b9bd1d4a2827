#import "platform/macos/Strings.h"

#include <algorithm>
#include <iterator>

namespace roomlattice::platform::macos {
namespace {

// The last three are U+0085, U+2028 and U+2029.
constexpr std::string_view lineEnds[] = {"\n", "\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

}  // namespace

std::string toString(NSString* string) {
  NSData* utf8 = [string dataUsingEncoding:NSUTF8StringEncoding];
  return {static_cast<const char*>([utf8 bytes]), [utf8 length]};
}

NSString* toNSStringOrNil(std::string_view text) {
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
}

std::string toSingleLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const auto* const end =
        std::ranges::find_if(lineEnds, [&](std::string_view each) { return text.starts_with(each); });
    const bool isEnd = end != std::end(lineEnds);
    line += isEnd ? ' ' : text.front();
    text.remove_prefix(isEnd ? end->size() : 1);
  }
  return line;
}

NSString* toNSString(std::string_view text) {
  NSString* string = toNSStringOrNil(text);
  return string == nil ? @"" : string;
}

}  // namespace roomlattice::platform::macos
