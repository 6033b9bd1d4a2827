#pragma once

#import <Foundation/Foundation.h>

#include <functional>

/// The Objective-C side of a C++ callback: the target of a control's action, the observer of a notification. It may be
/// released from within the callback.
@interface RoomlatticeAction : NSObject {
 @private
  std::function<void(id)>* function_;
}

- (instancetype)initWithFunction:(std::function<void(id sender)>)function;
- (void)invoke:(id)sender;

@end
