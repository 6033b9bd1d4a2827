#pragma once

#import <AppKit/AppKit.h>

#include "platform/Events.h"

namespace roomlattice::platform::macos {

/// A key press on its way to the focused control; on loan for the call.
class MacKeyEvent final : public KeyEvent {
 public:
  explicit MacKeyEvent(NSEvent* event) : event_(event) {}

  std::uint16_t code() const override { return [event_ keyCode]; }

  NSEvent* get() const { return event_; }

 private:
  NSEvent* event_;
};

}  // namespace roomlattice::platform::macos
