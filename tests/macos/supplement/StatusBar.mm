#include "tests/macos/supplement/StatusBar.h"

#import <objc/runtime.h>

#include <algorithm>

#include "tests/macos/supplement/Properties.h"
#include "tests/macos/supplement/Views.h"

using roomlattice::gnustep::property;
using roomlattice::gnustep::setProperty;

namespace {

constexpr CGFloat barHeight = 22.0;
constexpr CGFloat titleRowHeight = 22.0;
constexpr CGFloat separatorHeight = 9.0;
constexpr CGFloat narrowestMenu = 180.0;

const char viewKey[] = "view";
const char rowKey[] = "row";

bool withholdsButtons = false;
NSWindow* openWindow = nil;
NSMenu* openedMenu = nil;

NSMutableArray* items() {
  static NSMutableArray* items = [[NSMutableArray alloc] init];
  return items;
}

}  // namespace

@interface SupplementStatusButton : NSStatusBarButton
@end

@protocol SupplementFitting
- (void)fit;
@end

@implementation SupplementStatusButton

- (void)setTitle:(NSString*)title {
  [super setTitle:title];
  [(id<SupplementFitting>)[self target] fit];
}

- (void)setAttributedTitle:(NSAttributedString*)title {
  [super setAttributedTitle:title];
  [(id<SupplementFitting>)[self target] fit];
}

- (void)setImage:(NSImage*)image {
  [super setImage:image];
  [(id<SupplementFitting>)[self target] fit];
}

- (void)drawRect:(NSRect)rect {
  roomlattice::gnustep::paintLayer(self);
  [super drawRect:rect];
}

@end

@interface SupplementStatusItem : NSStatusItem <SupplementFitting> {
  NSWindow* window_;
  SupplementStatusButton* button_;
  NSMenu* shownMenu_;
  CGFloat shownLength_;
}
@end

@implementation SupplementStatusItem

- (instancetype)initWithLength:(CGFloat)length {
  self = [super init];
  button_ = [[SupplementStatusButton alloc] initWithFrame:NSMakeRect(0, 0, barHeight, barHeight)];
  [button_ setBordered:NO];
  [button_ setTitle:@""];
  [button_ setTarget:self];
  [button_ setAction:@selector(clicked:)];
  window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, barHeight, barHeight)
                                        styleMask:NSWindowStyleMaskBorderless
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
  [window_ setReleasedWhenClosed:NO];
  [window_ setLevel:NSStatusWindowLevel];
  [[window_ contentView] addSubview:button_];
  [self setLength:length];
  [window_ orderFront:nil];
  return self;
}

- (void)dealloc {
  [window_ orderOut:nil];
  [button_ setTarget:nil];
  [button_ release];
  [window_ close];
  [window_ release];
  [shownMenu_ release];
  [super dealloc];
}

- (void)clicked:(id)sender {
  roomlattice::gnustep::openMenu(self);
}

- (NSStatusBarButton*)button {
  return withholdsButtons ? nil : button_;
}

- (CGFloat)length {
  return shownLength_;
}

- (void)setLength:(CGFloat)length {
  shownLength_ = length;
  [self fit];
}

- (void)fit {
  const CGFloat length = shownLength_;
  [button_ sizeToFit];
  const CGFloat fitting = length == NSSquareStatusItemLength ? barHeight : NSWidth([button_ frame]);
  const CGFloat width = length > 0.0 ? length : std::max(fitting, barHeight);
  const NSRect screen = [[NSScreen mainScreen] frame];
  [window_ setFrame:NSMakeRect(NSMaxX(screen) - width, NSMaxY(screen) - barHeight, width, barHeight) display:YES];
  [button_ setFrame:NSMakeRect(0, 0, width, barHeight)];
}

- (NSMenu*)menu {
  return shownMenu_;
}

- (void)setMenu:(NSMenu*)menu {
  [menu retain];
  [shownMenu_ release];
  shownMenu_ = menu;
}

@end

@implementation NSStatusItem (Supplement)

- (NSStatusBarButton*)button {
  return nil;
}

@end

@interface NSStatusBar (SupplementReplacement)
@end

@implementation NSStatusBar (SupplementReplacement)

+ (NSStatusBar*)systemStatusBar {
  static NSStatusBar* bar = [[NSStatusBar alloc] init];
  return bar;
}

- (NSStatusItem*)statusItemWithLength:(CGFloat)length {
  SupplementStatusItem* item = [[[SupplementStatusItem alloc] initWithLength:length] autorelease];
  [items() addObject:item];
  return item;
}

- (void)removeStatusItem:(NSStatusItem*)item {
  [items() removeObjectIdenticalTo:item];
}

@end

/// The window of an open menu. It takes the keyboard, so that a row's text field can.
@interface SupplementMenuWindow : NSWindow
@end

@implementation SupplementMenuWindow

- (BOOL)canBecomeKeyWindow {
  return YES;
}

@end

/// A row with a title: a click closes the menu and sends the item's action.
@interface SupplementTitleRow : NSButton {
 @public
  NSMenuItem* item_;
}
@end

@implementation SupplementTitleRow

- (void)chosen:(id)sender {
  NSMenuItem* item = [[item_ retain] autorelease];
  roomlattice::gnustep::closeMenu();
  [NSApp sendAction:[item action] to:[item target] from:item];
}

@end

@implementation NSMenu (Supplement)

- (void)removeAllItems {
  while ([self numberOfItems] > 0) {
    [self removeItemAtIndex:0];
  }
}

- (void)cancelTracking {
  if (self == openedMenu) {
    roomlattice::gnustep::closeMenu();
  }
}

@end

@implementation NSMenuItem (Supplement)

- (void)setView:(NSView*)view {
  setProperty(self, viewKey, view);
}

- (NSView*)view {
  return property(self, viewKey);
}

@end

@implementation NSView (SupplementMenu)

- (NSMenuItem*)enclosingMenuItem {
  for (NSMenuItem* item in [openedMenu itemArray]) {
    if ([item view] != nil && [self isDescendantOf:[item view]]) {
      return item;
    }
  }
  return nil;
}

@end

namespace {

NSView* titleRow(NSMenuItem* item) {
  SupplementTitleRow* row =
      [[[SupplementTitleRow alloc] initWithFrame:NSMakeRect(0, 0, 100, titleRowHeight)] autorelease];
  row->item_ = item;
  [row setBordered:NO];
  [row setTitle:[item title]];
  [row setTarget:row];
  [row setAction:@selector(chosen:)];
  return row;
}

NSView* makeRow(NSMenuItem* item) {
  if ([item view] != nil) {
    return [item view];
  }
  if ([item isSeparatorItem]) {
    return [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 100, separatorHeight)] autorelease];
  }
  return titleRow(item);
}

/// Stacks the rows from the top in a window as large as they need.
NSWindow* makeWindow(NSMenu* menu) {
  CGFloat height = 0.0;
  CGFloat width = narrowestMenu;
  for (NSMenuItem* item in [menu itemArray]) {
    NSView* row = makeRow(item);
    setProperty(item, rowKey, row);
    height += NSHeight([row frame]);
    width = std::max(width, NSWidth([row frame]));
  }
  const NSRect screen = [[NSScreen mainScreen] frame];
  const NSRect frame = NSMakeRect(NSMaxX(screen) - width, NSMaxY(screen) - barHeight - height, width, height);
  NSWindow* window = [[SupplementMenuWindow alloc] initWithContentRect:frame
                                                             styleMask:NSWindowStyleMaskBorderless
                                                               backing:NSBackingStoreBuffered
                                                                 defer:NO];
  CGFloat top = height;
  for (NSMenuItem* item in [menu itemArray]) {
    NSView* row = property(item, rowKey);
    top -= NSHeight([row frame]);
    [row setFrame:NSMakeRect(0, top, [item view] == nil ? width : NSWidth([row frame]), NSHeight([row frame]))];
    [[window contentView] addSubview:row];
  }
  return window;
}

}  // namespace

namespace roomlattice::gnustep {

NSArray* statusItems() {
  return [NSArray arrayWithArray:items()];
}

void openMenu(NSStatusItem* item) {
  closeMenu();
  openedMenu = [[item menu] retain];
  [[openedMenu delegate] menuNeedsUpdate:openedMenu];
  if ([[openedMenu delegate] respondsToSelector:@selector(menuWillOpen:)]) {
    [[openedMenu delegate] menuWillOpen:openedMenu];
  }
  openWindow = makeWindow(openedMenu);
  [openWindow setReleasedWhenClosed:NO];
  [openWindow setLevel:NSPopUpMenuWindowLevel];
  [openWindow setAcceptsMouseMovedEvents:YES];
  [openWindow makeKeyAndOrderFront:nil];
}

void closeMenu() {
  if (openWindow == nil) {
    return;
  }
  [openWindow makeFirstResponder:nil];
  [openWindow orderOut:nil];
  for (NSMenuItem* item in [openedMenu itemArray]) {
    [property(item, rowKey) removeFromSuperview];
    setProperty(item, rowKey, nil);
  }
  [openWindow close];
  [openWindow autorelease];
  NSMenu* closed = [openedMenu autorelease];
  openWindow = nil;
  openedMenu = nil;
  if ([[closed delegate] respondsToSelector:@selector(menuDidClose:)]) {
    [[closed delegate] menuDidClose:closed];
  }
}

NSWindow* menuWindow() {
  return openWindow;
}

NSRect screenFrame(NSMenuItem* item) {
  NSView* row = property(item, rowKey);
  const NSRect inWindow = [row convertRect:[row bounds] toView:nil];
  return NSOffsetRect(inWindow, NSMinX([openWindow frame]), NSMinY([openWindow frame]));
}

void withholdButtons(bool withhold) {
  withholdsButtons = withhold;
}

}  // namespace roomlattice::gnustep
