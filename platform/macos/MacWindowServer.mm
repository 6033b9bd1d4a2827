#import "platform/macos/MacWindowServer.h"

#import <Foundation/Foundation.h>

#import "platform/macos/CoreFoundationPointer.h"
#import "platform/macos/FoundationValues.h"

namespace roomlattice::platform::macos {

std::optional<WindowServerFunctions::Connection> MacWindowServer::connection() const {
  return server_.CGSMainConnectionID == nullptr ? std::nullopt : std::optional(server_.CGSMainConnectionID());
}

Value MacWindowServer::managedDisplaySpaces() {
  const auto main = connection();
  if (!main || server_.CGSCopyManagedDisplaySpaces == nullptr) {
    return {};
  }
  @autoreleasepool {
    const CoreFoundationPointer displays(server_.CGSCopyManagedDisplaySpaces(*main));
    return toValue((id)displays.get());
  }
}

SpaceID MacWindowServer::activeSpace() {
  const auto main = connection();
  return main && server_.CGSGetActiveSpace != nullptr ? server_.CGSGetActiveSpace(*main) : 0;
}

void MacWindowServer::addWindowToSpace(WindowNumber window, SpaceID space) {
  attach(server_.CGSAddWindowsToSpaces, window, space);
}

void MacWindowServer::removeWindowFromSpace(WindowNumber window, SpaceID space) {
  attach(server_.CGSRemoveWindowsFromSpaces, window, space);
}

void MacWindowServer::attach(Attachment change, WindowNumber window, SpaceID space) {
  const auto main = connection();
  if (!main || change == nullptr) {
    return;
  }
  @autoreleasepool {
    NSArray* windows = [NSArray arrayWithObject:[NSNumber numberWithInteger:window]];
    NSArray* spaces = [NSArray arrayWithObject:[NSNumber numberWithUnsignedLongLong:space]];
    change(*main, (CFArrayRef)windows, (CFArrayRef)spaces);
  }
}

}  // namespace roomlattice::platform::macos
