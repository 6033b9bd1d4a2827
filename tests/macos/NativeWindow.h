#pragma once

#import <AppKit/AppKit.h>

#include "platform/Window.h"

namespace roomlattice::tests {

/// The NSWindow with this number.
inline NSWindow* nativeWindow(const platform::Window& window) {
  return [NSApp windowWithWindowNumber:window.number()];
}

}  // namespace roomlattice::tests
