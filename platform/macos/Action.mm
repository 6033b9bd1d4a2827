#import "platform/macos/Action.h"

#include <utility>

@implementation RoomlatticeAction

- (instancetype)initWithFunction:(std::function<void(id)>)function {
  self = [super init];
  if (self != nil) {
    // Instance variables of C++ class type are not constructed by every Objective-C runtime.
    function_ = new std::function<void(id)>(std::move(function));
  }
  return self;
}

- (void)dealloc {
  delete function_;
  [super dealloc];
}

- (void)invoke:(id)sender {
  [[self retain] autorelease];
  (*function_)(sender);
}

@end
