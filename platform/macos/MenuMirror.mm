#import "platform/macos/MenuMirror.h"

#import "platform/macos/Action.h"
#import "platform/macos/FoundationValues.h"
#import "platform/macos/Strings.h"

@interface RoomlatticeMenuDelegate : RoomlatticeAction <NSMenuDelegate>
@end

@implementation RoomlatticeMenuDelegate

- (void)menuNeedsUpdate:(NSMenu*)menu {
  [self invoke:menu];
}

@end

namespace roomlattice::platform::macos {

MenuMirror::MenuMirror(Menu& menu)
    : menu_(menu),
      native_(adopt([[NSMenu alloc] initWithTitle:@""])),
      delegate_(adopt([[RoomlatticeMenuDelegate alloc] initWithFunction:[this](id) { needsUpdate(); }])) {
  [native_.get() setAutoenablesItems:NO];
  [native_.get() setDelegate:delegate_.get()];
}

MenuMirror::~MenuMirror() {
  [native_.get() setDelegate:nil];
  removeItems();
}

void MenuMirror::needsUpdate() {
  // The program's rows go when it rebuilds its menu: what shows them goes first.
  removeItems();
  if (menu_.needsUpdate) {
    menu_.needsUpdate(menu_);
  }
  for (MenuItem& item : menu_.items) {
    [native_.get() addItem:std::visit([this](auto& one) { return makeItem(one); }, item)];
  }
}

void MenuMirror::removeItems() {
  [native_.get() removeAllItems];
  rows_.clear();
}

NSMenuItem* MenuMirror::makeItem(ViewItem& item) {
  rows_.push_back(std::make_unique<HostedView>(*item.view));
  NSMenuItem* native = [[[NSMenuItem alloc] initWithTitle:@"" action:nullptr keyEquivalent:@""] autorelease];
  [native setRepresentedObject:toPropertyList(item.representedObject)];
  [native setView:rows_.back()->get()];
  return native;
}

NSMenuItem* MenuMirror::makeItem(const CommandItem& item) {
  NSMenuItem* native = [[[NSMenuItem alloc] initWithTitle:toNSString(item.title)
                                                   action:nullptr
                                            keyEquivalent:toNSString(item.keyEquivalent)] autorelease];
  if (item.role == CommandRole::Quit) {
    // Without a target it goes along the responders to the application.
    [native setAction:@selector(terminate:)];
    return native;
  }
  const auto run = [action = item.action](id) {
    if (action) {
      action();
    }
  };
  RoomlatticeAction* action = [[[RoomlatticeAction alloc] initWithFunction:run] autorelease];
  [native setTarget:action];
  [native setAction:@selector(invoke:)];
  // Targets are not kept.
  [native setRepresentedObject:action];
  return native;
}

NSMenuItem* MenuMirror::makeItem(const SeparatorItem&) {
  return static_cast<NSMenuItem*>([NSMenuItem separatorItem]);
}

}  // namespace roomlattice::platform::macos
