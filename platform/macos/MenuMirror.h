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
  bool isOpen() const { return session_.has_value(); }

  // For the menu's delegate.
  void opens();
  void hasClosed() { session_.reset(); }

 private:
  Menu& menu_;
  ObjectPointer<NSMenu> native_;
  ObjectPointer<RoomlatticeMenuDelegate> delegate_;
  std::optional<MenuSession> session_;
};

}  // namespace roomlattice::platform::macos
