#import "platform/macos/MacPlatform.h"

#import <AppKit/AppKit.h>

#include "tests/conformance/Backend.h"
#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/SpaceServer.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::tests {
namespace {

/// On a window server with three desktops, whose Dock follows swipes.
class GnustepBackend final : public Backend {
 public:
  GnustepBackend() {
    gnustep::SpaceServer& server = gnustep::SpaceServer::shared();
    server.reset();
    server.spaces = {{.identifier = 11, .uuid = "a"}, {.identifier = 12, .uuid = "b"}, {.identifier = 13, .uuid = "c"}};
    server.active = 11;
    server.followSwipes();
  }

  platform::Platform& platform() override { return *platform_; }
  bool runUntil(const std::function<bool()>& condition) override { return tests::runUntil(condition); }
  void runFor(std::chrono::milliseconds duration) override { tests::runFor(duration); }

  void openMenu() override { gnustep::openMenu([gnustep::statusItems() lastObject]); }
  void closeMenu() override { gnustep::closeMenu(); }
  bool isMenuOpen() override { return gnustep::menuWindow() != nil; }

  void pressReturn() override {
    @autoreleasepool {
      [NSApp sendEvent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                              location:NSZeroPoint
                                         modifierFlags:0
                                             timestamp:0
                                          windowNumber:[gnustep::menuWindow() windowNumber]
                                               context:nil
                                            characters:@"\r"
                           charactersIgnoringModifiers:@"\r"
                                             isARepeat:NO
                                               keyCode:platform::keyCode::returnKey]];
    }
  }

  void askForSwitch(const std::string&) override {}

 private:
  std::unique_ptr<platform::Platform> platform_ = platform::macos::makePlatform();
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<GnustepBackend>();
}

std::string_view backendName() {
  return "gnustep";
}

}  // namespace roomlattice::tests
