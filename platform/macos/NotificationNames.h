#pragma once

#import <Foundation/Foundation.h>

#include <string_view>

namespace roomlattice::platform::macos {

/// The system's own constant for the notifications that it posts, any other name as it is.
NSString* toNSNotificationName(std::string_view name);

}  // namespace roomlattice::platform::macos
