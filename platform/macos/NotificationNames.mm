#import "platform/macos/NotificationNames.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Strings.h"

#include "platform/NotificationCenter.h"

namespace roomlattice::platform::macos {

NSString* toNSNotificationName(std::string_view name) {
  if (name == notification::activeSpaceDidChange) {
    return NSWorkspaceActiveSpaceDidChangeNotification;
  }
  if (name == notification::didWake) {
    return NSWorkspaceDidWakeNotification;
  }
  if (name == notification::didChangeScreenParameters) {
    return NSApplicationDidChangeScreenParametersNotification;
  }
  return toNSString(name);
}

}  // namespace roomlattice::platform::macos
