#include "tests/macos/supplement/SpaceServer.h"

#import <AppKit/AppKit.h>
#import <CoreFoundation/CoreFoundation.h>

#include "tests/macos/supplement/EventStream.h"

#include <algorithm>

using roomlattice::gnustep::Space;
using roomlattice::gnustep::SpaceServer;

namespace {

constexpr std::int32_t mainConnection = 4711;
int liveAnswerCount = 0;

}  // namespace

/// The answer to a question for the desktops; counts whether the caller releases what it owns.
@interface SupplementAnswer : NSArray {
  NSArray* contents_;
}
@end

@implementation SupplementAnswer

- (instancetype)initWithContents:(NSArray*)contents {
  contents_ = [contents retain];
  ++liveAnswerCount;
  return self;
}

- (void)dealloc {
  [contents_ release];
  --liveAnswerCount;
  [super dealloc];
}

- (NSUInteger)count {
  return [contents_ count];
}

- (id)objectAtIndex:(NSUInteger)index {
  return [contents_ objectAtIndex:index];
}

@end

namespace {

NSDictionary* dictionary(const Space& space) {
  return @{
    @"ManagedSpaceID" : [NSNumber numberWithUnsignedLongLong:space.identifier],
    @"id64" : [NSNumber numberWithUnsignedLongLong:space.identifier],
    @"uuid" : [NSString stringWithUTF8String:space.uuid.c_str()],
    @"type" : [NSNumber numberWithLongLong:space.type],
  };
}

NSArray* displays() {
  const SpaceServer& server = SpaceServer::shared();
  if (!server.givenAnswer.empty()) {
    return [[NSString stringWithUTF8String:server.givenAnswer.c_str()] propertyList];
  }
  NSMutableArray* spaces = [NSMutableArray array];
  for (const Space& space : server.spaces) {
    [spaces addObject:dictionary(space)];
  }
  return [NSArray arrayWithObject:@{@"Display Identifier" : @"Main", @"Spaces" : spaces}];
}

}  // namespace

namespace roomlattice::gnustep {

SpaceServer& SpaceServer::shared() {
  static SpaceServer server;
  return server;
}

void SpaceServer::reset() {
  *this = {};
}

void SpaceServer::step(int by) {
  const auto current = std::ranges::find(spaces, active, &Space::identifier);
  const auto next = current - spaces.begin() + by;
  if (current == spaces.end() || next < 0 || next >= std::ssize(spaces)) {
    return;
  }
  active = spaces[static_cast<std::size_t>(next)].identifier;
  [[[NSWorkspace sharedWorkspace] notificationCenter] postNotificationName:NSWorkspaceActiveSpaceDidChangeNotification
                                                                    object:[NSWorkspace sharedWorkspace]];
}

void SpaceServer::followSwipes() {
  constexpr std::uint32_t progress = 124;
  constexpr std::uint32_t phase = 132;
  EventStream::shared().onPost = [this](const PostedEvent& event) {
    const auto value = [&event](std::uint32_t field) {
      const auto found = std::ranges::find(event.fields, field, &FieldRecord::field);
      return found == event.fields.end() ? 0.0 : found->value;
    };
    if (value(phase) == 4.0) {
      step(value(progress) > 0.0 ? 1 : -1);
    }
  };
}

int SpaceServer::liveAnswers() {
  return liveAnswerCount;
}

}  // namespace roomlattice::gnustep

extern "C" {

std::int32_t CGSMainConnectionID() {
  return mainConnection;
}

CFArrayRef CGSCopyManagedDisplaySpaces(std::int32_t connection) {
  return connection == mainConnection ? (CFArrayRef)[[SupplementAnswer alloc] initWithContents:displays()] : nullptr;
}

std::uint64_t CGSGetActiveSpace(std::int32_t connection) {
  return connection == mainConnection ? SpaceServer::shared().active : 0;
}

void CGSAddWindowsToSpaces(std::int32_t connection, CFArrayRef windows, CFArrayRef spaces) {
  for (NSNumber* window in (NSArray*)windows) {
    for (NSNumber* space in (NSArray*)spaces) {
      if (connection == mainConnection) {
        SpaceServer::shared().windows[[window longLongValue]].insert([space unsignedLongLongValue]);
      }
    }
  }
}

void CGSRemoveWindowsFromSpaces(std::int32_t connection, CFArrayRef windows, CFArrayRef spaces) {
  for (NSNumber* window in (NSArray*)windows) {
    for (NSNumber* space in (NSArray*)spaces) {
      if (connection == mainConnection) {
        SpaceServer::shared().windows[[window longLongValue]].erase([space unsignedLongLongValue]);
      }
    }
  }
}
}
