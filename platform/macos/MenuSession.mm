#import "platform/macos/MenuSession.h"

#import "platform/macos/Action.h"
#import "platform/macos/FoundationValues.h"
#import "platform/macos/Strings.h"

#include <variant>

namespace roomlattice::platform::macos {
namespace {

/// Makes the native form of an item, and hosts the row of one that has a view.
struct ItemMaker {
  std::vector<std::unique_ptr<HostedView>>& rows;

  NSMenuItem* operator()(const ViewItem& item) const {
    rows.push_back(std::make_unique<HostedView>(*item.view));
    NSMenuItem* native = [[[NSMenuItem alloc] initWithTitle:@"" action:nullptr keyEquivalent:@""] autorelease];
    [native setRepresentedObject:toPropertyList(item.representedObject)];
    [native setView:rows.back()->get()];
    return native;
  }

  NSMenuItem* operator()(const CommandItem& item) const {
    NSMenuItem* native = [[[NSMenuItem alloc] initWithTitle:toNSString(item.title)
                                                     action:nullptr
                                              keyEquivalent:toNSString(item.keyEquivalent)] autorelease];
    if (item.role == CommandRole::Quit) {
      // Without a target it goes along the responders to the application.
      [native setAction:@selector(terminate:)];
      return native;
    }
    const auto run = [action = item.action](id) { action(); };
    RoomlatticeAction* action = [[[RoomlatticeAction alloc] initWithFunction:run] autorelease];
    [native setTarget:action];
    [native setAction:@selector(invoke:)];
    // Targets are not kept.
    [native setRepresentedObject:action];
    return native;
  }

  NSMenuItem* operator()(const SeparatorItem&) const { return static_cast<NSMenuItem*>([NSMenuItem separatorItem]); }
};

}  // namespace

MenuSession::MenuSession(Menu& menu, NSMenu* native) {
  [native removeAllItems];
  menu.needsUpdate(menu);
  for (const MenuItem& item : menu.items) {
    [native addItem:std::visit(ItemMaker{rows_}, item)];
  }
}

}  // namespace roomlattice::platform::macos
