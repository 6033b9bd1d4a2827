#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace roomlattice::platform::macos {

/// The text in UTF-8; empty for nil.
std::string toString(NSString* string);

/// Nil when `text` is not UTF-8.
NSString* toNSStringOrNil(std::string_view text);

/// The text with a blank for each character that would end a line.
std::string toSingleLine(std::string_view text);

/// Text that is not UTF-8 becomes the empty string.
NSString* toNSString(std::string_view text);

}  // namespace roomlattice::platform::macos
