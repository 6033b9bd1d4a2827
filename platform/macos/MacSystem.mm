#import "platform/macos/MacSystem.h"

#import <AppKit/AppKit.h>

#import "platform/macos/ObjectPointer.h"
#import "platform/macos/Strings.h"

#include <memory>

namespace roomlattice::platform::macos {
namespace {

NSActivityOptions activityOptions(ActivityKind kind) {
  switch (kind) {
    case ActivityKind::UserInitiatedAllowingIdleSystemSleep:
      return NSActivityUserInitiatedAllowingIdleSystemSleep;
  }
}

}  // namespace

void MacSystem::log(const std::string& line) {
  @autoreleasepool {
    NSLog(@"%@", toNSString(line));
  }
}

std::variant<ProcessOutput, LaunchError> MacSystem::run(const std::string& path,
                                                        const std::vector<std::string>& arguments) {
  @autoreleasepool {
    NSMutableArray* list = [NSMutableArray arrayWithCapacity:arguments.size()];
    for (const std::string& argument : arguments) {
      [list addObject:toNSString(argument)];
    }
    NSTask* task = [[[NSTask alloc] init] autorelease];
    [task setExecutableURL:[NSURL fileURLWithPath:toNSString(path)]];
    [task setArguments:list];
    NSPipe* pipe = [NSPipe pipe];
    [task setStandardOutput:pipe];
    [task setStandardError:pipe];
    NSError* error = nil;
    if (![task launchAndReturnError:&error]) {
      return LaunchError{toString([error localizedDescription])};
    }
    // The child would block on a full pipe if its end were waited for first.
    NSData* output = [[pipe fileHandleForReading] readDataToEndOfFile];
    [task waitUntilExit];
    return ProcessOutput{{static_cast<const char*>([output bytes]), [output length]}};
  }
}

void MacSystem::setPasteboardString(const std::string& text) {
  @autoreleasepool {
    NSPasteboard* pasteboard = [NSPasteboard generalPasteboard];
    [pasteboard clearContents];
    [pasteboard setString:toNSString(text) forType:NSPasteboardTypeString];
  }
}

Registration MacSystem::beginActivity(ActivityKind kind, const std::string& reason) {
  @autoreleasepool {
    NSProcessInfo* process = [NSProcessInfo processInfo];
    id activity = [process beginActivityWithOptions:activityOptions(kind) reason:toNSString(reason)];
    const auto token = std::make_shared<ObjectPointer<NSObject>>(share(static_cast<NSObject*>(activity)));
    return Registration([token] { [[NSProcessInfo processInfo] endActivity:token->get()]; });
  }
}

}  // namespace roomlattice::platform::macos
