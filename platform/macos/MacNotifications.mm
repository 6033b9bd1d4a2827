#import "platform/macos/MacNotifications.h"

#import <AppKit/AppKit.h>

namespace roomlattice::platform::macos {

MacNotifications::MacNotifications()
    : default_([NSNotificationCenter defaultCenter]),
      workspace_([[NSWorkspace sharedWorkspace] notificationCenter]),
      distributed_([NSDistributedNotificationCenter defaultCenter]) {}

}  // namespace roomlattice::platform::macos
