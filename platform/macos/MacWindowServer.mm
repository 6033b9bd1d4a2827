#import "platform/macos/MacWindowServer.h"

#import <Foundation/Foundation.h>

#import "platform/macos/CoreFoundationPointer.h"
#import "platform/macos/FoundationValues.h"

namespace roomlattice::platform::macos {

Value MacWindowServer::managedDisplaySpaces() {
  @autoreleasepool {
    const auto displays = CoreFoundationPointer<CFArrayRef>::adopt(
        functions_.CGSCopyManagedDisplaySpaces(functions_.CGSMainConnectionID()));
    return toValue((id)displays.get());
  }
}

SpaceID MacWindowServer::activeSpace() {
  return functions_.CGSGetActiveSpace(functions_.CGSMainConnectionID());
}

void MacWindowServer::addWindowToSpace(WindowNumber window, SpaceID space) {
  attach(functions_.CGSAddWindowsToSpaces, window, space);
}

void MacWindowServer::removeWindowFromSpace(WindowNumber window, SpaceID space) {
  attach(functions_.CGSRemoveWindowsFromSpaces, window, space);
}

void MacWindowServer::attach(Attachment change, WindowNumber window, SpaceID space) {
  @autoreleasepool {
    NSArray* windows = [NSArray arrayWithObject:[NSNumber numberWithInteger:window]];
    NSArray* spaces = [NSArray arrayWithObject:[NSNumber numberWithUnsignedLongLong:space]];
    change(functions_.CGSMainConnectionID(), (CFArrayRef)windows, (CFArrayRef)spaces);
  }
}

}  // namespace roomlattice::platform::macos
