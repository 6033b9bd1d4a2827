#pragma once

#import <Foundation/Foundation.h>

#include "platform/Geometry.h"

namespace roomlattice::platform::macos {

inline NSRect toNSRect(const Rect& rect) {
  return NSMakeRect(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

inline NSSize toNSSize(Size size) {
  return NSMakeSize(size.width, size.height);
}

inline Point toPoint(NSPoint point) {
  return {point.x, point.y};
}

inline Size toSize(NSSize size) {
  return {size.width, size.height};
}

inline Rect toRect(NSRect rect) {
  return {toPoint(rect.origin), toSize(rect.size)};
}

}  // namespace roomlattice::platform::macos
