#import "platform/macos/MenuMirror.h"

/// Tells a mirror what AppKit tells its menu's delegate.
@interface RoomlatticeMenuDelegate : NSObject <NSMenuDelegate> {
 @public
  roomlattice::platform::macos::MenuMirror* mirror_;
}
@end

@implementation RoomlatticeMenuDelegate

- (void)menuNeedsUpdate:(NSMenu*)menu {
  mirror_->needsUpdate();
}

- (void)menuWillOpen:(NSMenu*)menu {
  mirror_->willOpen();
}

- (void)menuDidClose:(NSMenu*)menu {
  mirror_->hasClosed();
}

@end

namespace roomlattice::platform::macos {

MenuMirror::MenuMirror(Menu& menu)
    : menu_(menu),
      native_(adopt([[NSMenu alloc] initWithTitle:@""])),
      delegate_(adopt([[RoomlatticeMenuDelegate alloc] init])) {
  delegate_.get()->mirror_ = this;
  [native_.get() setAutoenablesItems:NO];
  [native_.get() setDelegate:delegate_.get()];
}

MenuMirror::~MenuMirror() {
  [native_.get() setDelegate:nil];
  [native_.get() cancelTracking];
  [native_.get() removeAllItems];
}

void MenuMirror::needsUpdate() {
  // AppKit also asks before it looks for the key of an item, and the rows that are on show must not go then.
  if (isOpen_) {
    return;
  }
  // The program's rows go when it rebuilds its menu: what shows them goes first.
  session_.reset();
  session_.emplace(menu_, native_.get());
}

void MenuMirror::hasClosed() {
  isOpen_ = false;
  session_.reset();
}

}  // namespace roomlattice::platform::macos
