#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/ObjectPointer.h"

#include "platform/Application.h"

namespace roomlattice::platform::macos {

class MacApplication final : public Application {
 public:
  MacApplication();

  void setActivationPolicy(ActivationPolicy policy) override;
  int run(std::function<void()> didFinishLaunching) override;
  void activateIgnoringOtherApps() override;

  /// On a Mac the process ends in here.
  void terminate() override;

 private:
  ObjectPointer<NSApplication> application_;
};

}  // namespace roomlattice::platform::macos
