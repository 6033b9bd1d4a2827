#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/Action.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Controls.h"

namespace roomlattice::platform::macos {

/// An AppKit control and what it calls, which it does not keep itself.
struct NativeControl {
  ObjectPointer<NSControl> control;
  ObjectPointer<RoomlatticeAction> action;
};

NativeControl makeControl(const Control& control);

/// The size of a control's visible part, without shadows and the like that its frame takes in.
Size intrinsicSize(const Control& control);

/// Gives a control's visible part a place.
void place(NSControl* control, const Rect& frame);

}  // namespace roomlattice::platform::macos
