#import "platform/macos/MacTabbedWindow.h"

#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {
namespace {

NSWindow* makeWindow(const TabbedWindowModel& model) {
  NSWindow* window = [[[NSWindow alloc] initWithContentRect:toNSRect({{}, model.contentSize})
                                                  styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                                                    backing:NSBackingStoreBuffered
                                                      defer:NO] autorelease];
  [window setTitle:toNSString(model.title)];
  [window setReleasedWhenClosed:NO];
  NSView* content = [[[NSView alloc] initWithFrame:toNSRect({{}, model.contentSize})] autorelease];
  [window setContentView:content];
  [window center];
  return window;
}

}  // namespace

MacTabbedWindow::MacTabbedWindow(const TabbedWindowModel& model) {
  @autoreleasepool {
    NSWindow* window = makeWindow(model);
    controller_ = adopt([[NSWindowController alloc] initWithWindow:window]);
    NSTabView* tabs = [[[NSTabView alloc] initWithFrame:toNSRect(model.tabFrame)] autorelease];
    [tabs setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
    [[window contentView] addSubview:tabs];
    for (const TabPage& page : model.pages) {
      [tabs addTabViewItem:makePage(page)];
    }
    [window setInitialFirstResponder:tabs];
  }
}

MacTabbedWindow::~MacTabbedWindow() {
  [[controller_.get() window] close];
  for (const std::vector<NativeControl>& page : pages_) {
    for (const NativeControl& native : page) {
      [native.control.get() setTarget:nil];
    }
  }
}

NSTabViewItem* MacTabbedWindow::makePage(const TabPage& page) {
  NSView* view = [[[NSView alloc] initWithFrame:toNSRect({{}, page.size})] autorelease];
  std::vector<NativeControl>& natives = pages_.emplace_back();
  NSView* previous = nil;
  for (const PlacedControl& placed : page.controls) {
    natives.push_back(makeControl(placed.control));
    NSControl* made = natives.back().control.get();
    place(made, placed.frame);
    if (!placed.accessibilityLabel.empty()) {
      [made setAccessibilityLabel:toNSString(placed.accessibilityLabel)];
    }
    // The tab view gives the page the room it has: its contents hang from the top.
    [made setAutoresizingMask:NSViewMinYMargin];
    [view addSubview:made];
    [previous setNextKeyView:made];
    previous = made;
  }
  NSTabViewItem* item = [[[NSTabViewItem alloc] initWithIdentifier:toNSString(page.identifier)] autorelease];
  [item setLabel:toNSString(page.label)];
  [item setView:view];
  if (!natives.empty()) {
    [item setInitialFirstResponder:natives.front().control.get()];
  }
  return item;
}

void MacTabbedWindow::show() {
  [controller_.get() showWindow:nil];
  // From macOS 14 on, the system may be slow to make an accessory application the active one, or refuse to.
  [[controller_.get() window] orderFrontRegardless];
}

void MacTabbedWindow::setText(ControlReference label, const std::string& text) {
  [control(label) setStringValue:toNSString(text)];
}

void MacTabbedWindow::setEnabled(ControlReference button, bool enabled) {
  [control(button) setEnabled:enabled];
}

NSControl* MacTabbedWindow::control(ControlReference reference) const {
  return pages_.at(reference.page).at(reference.control).control.get();
}

}  // namespace roomlattice::platform::macos
