#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/MenuSession.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/Menu.h"

#include <optional>

@class RoomlatticeMenuDelegate;

namespace roomlattice::platform::macos {

/// An NSMenu that shows the program's menu, brought up to date each time before it opens. It closes with this object.
class MenuMirror {
 public:
  /// `menu` must outlive the mirror.
  explicit MenuMirror(Menu& menu);
  ~MenuMirror();
  MenuMirror(const MenuMirror&) = delete;
  MenuMirror& operator=(const MenuMirror&) = delete;

  NSMenu* get() const { return native_.get(); }
  bool isOpen() const { return isOpen_; }

  // For the menu's delegate.
  void needsUpdate();
  void willOpen() { isOpen_ = true; }
  void hasClosed();

 private:
  Menu& menu_;
  ObjectPointer<NSMenu> native_;
  ObjectPointer<RoomlatticeMenuDelegate> delegate_;
  // There may be one in a closed menu, too, that AppKit has asked for its items.
  std::optional<MenuSession> session_;
  bool isOpen_ = false;
};

}  // namespace roomlattice::platform::macos
