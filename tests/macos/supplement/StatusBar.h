#pragma once

#import <AppKit/AppKit.h>

namespace roomlattice::gnustep {

/// The items in the status bar, each in a window of its own at the top right of the screen.
NSArray* statusItems();

/// Opens the item's menu in a window of its own, as a click on the item does, and closes it.
void openMenu(NSStatusItem* item);
void closeMenu();

/// The window of the open menu; nil when none is open.
NSWindow* menuWindow();

/// Where an item of the open menu is, in screen coordinates.
NSRect screenFrame(NSMenuItem* item);

/// The bar has no button to give, or has one again.
void withholdButtons(bool withhold);

}  // namespace roomlattice::gnustep
