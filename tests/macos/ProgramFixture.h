#pragma once

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/macos/UserInput.h"
#include "tests/macos/supplement/EventStream.h"
#include "tests/macos/supplement/SpaceServer.h"

namespace roomlattice::platform::macos {

/// The whole program on the native backend, with three desktops and a full-screen space. GNUstep tells of the end of
/// launching once in a process: one run a test, one test a process.
class ProgramFixture : public testing::Test {
 protected:
  ProgramFixture();

  /// Runs the program; `script` is carried out from within its event loop.
  void run(const std::function<void()>& script);

  /// Has the Dock follow swipes, and waits until the tour is over.
  void awaitTour();

  NSStatusItem* statusItem();
  std::string title();
  NSMenuItem* menuItem(NSInteger index);
  void openMenu();

  /// The label attached to a desktop; nil for none.
  NSWindow* label(std::uint64_t space);
  std::string labelText(std::uint64_t space);

  /// Opens the preferences from the menu; nil when that fails.
  NSWindow* openPreferences();
  /// The first control of a class in a window, of the given title unless that is nil.
  NSView* control(NSWindow* window, Class kind, NSString* title);

  /// A place in a view, on the screen.
  NSPoint place(NSView* view, CGFloat fromLeft);
  static NSPoint centre(NSRect frame);

  gnustep::EventStream& stream_ = gnustep::EventStream::shared();
  gnustep::SpaceServer& server_ = gnustep::SpaceServer::shared();
  gnustep::UserInput user_;
};

/// What an event of a swipe to the right or left is posted with.
std::vector<gnustep::FieldRecord> swipeFields(double phase, double progress, double velocity);

}  // namespace roomlattice::platform::macos
