#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/NativeControls.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Controls.h"

#include <vector>

namespace roomlattice::platform::macos {

class MacTabbedWindow final : public TabbedWindow {
 public:
  explicit MacTabbedWindow(const TabbedWindowModel& model);
  ~MacTabbedWindow() override;
  MacTabbedWindow(const MacTabbedWindow&) = delete;
  MacTabbedWindow& operator=(const MacTabbedWindow&) = delete;

  void show() override;
  void setText(ControlReference label, const std::string& text) override;
  void setEnabled(ControlReference button, bool enabled) override;

 private:
  NSTabViewItem* makePage(const TabPage& page);
  NSControl* control(ControlReference reference) const;

  ObjectPointer<NSWindowController> controller_;
  std::vector<std::vector<NativeControl>> pages_;
};

}  // namespace roomlattice::platform::macos
