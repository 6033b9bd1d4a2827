#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/HostedView.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Menu.h"

#include <memory>
#include <vector>

@class RoomlatticeMenuDelegate;

namespace roomlattice::platform::macos {

/// An NSMenu that shows the program's menu, brought up to date each time before it opens.
class MenuMirror {
 public:
  /// `menu` must outlive the mirror.
  explicit MenuMirror(Menu& menu);
  ~MenuMirror();
  MenuMirror(const MenuMirror&) = delete;
  MenuMirror& operator=(const MenuMirror&) = delete;

  NSMenu* get() const { return native_.get(); }

 private:
  void needsUpdate();
  void removeItems();
  NSMenuItem* makeItem(ViewItem& item);
  NSMenuItem* makeItem(const CommandItem& item);
  NSMenuItem* makeItem(const SeparatorItem& item);

  Menu& menu_;
  ObjectPointer<NSMenu> native_;
  ObjectPointer<RoomlatticeMenuDelegate> delegate_;
  std::vector<std::unique_ptr<HostedView>> rows_;
};

}  // namespace roomlattice::platform::macos
