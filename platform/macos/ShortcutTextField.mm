#import "platform/macos/ShortcutTextField.h"

#import "platform/macos/Strings.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct Shortcut {
  NSUInteger modifiers;
  std::string_view key;
  SEL action;
};

/// What answers to a key, or null.
SEL shortcutAction(NSEvent* event) {
  const NSUInteger command = NSEventModifierFlagCommand;
  const NSUInteger withShift = command | NSEventModifierFlagShift;
  const Shortcut shortcuts[] = {
      {command, "x", @selector(cut:)},       {command, "c", @selector(copy:)}, {command, "v", @selector(paste:)},
      {command, "a", @selector(selectAll:)}, {command, "z", @selector(undo:)}, {withShift, "z", @selector(redo:)},
  };
  const NSUInteger modifiers =
      [event modifierFlags] & (withShift | NSEventModifierFlagOption | NSEventModifierFlagControl);
  // Not those without modifiers: with Command, a keyboard of another script has its Latin letters.
  const std::string key = roomlattice::platform::macos::toString([[event characters] lowercaseString]);
  const auto* found = std::ranges::find_if(
      shortcuts, [&](const Shortcut& shortcut) { return shortcut.modifiers == modifiers && shortcut.key == key; });
  return found == std::end(shortcuts) ? nullptr : found->action;
}

}  // namespace

@implementation RoomlatticeShortcutTextField

- (BOOL)performShortcut:(NSEvent*)event {
  NSText* editor = [self currentEditor];
  SEL action = shortcutAction(event);
  // Along the responders, as a menu's command would go: undoing is the window's.
  return editor != nil && action != nullptr && [editor tryToPerform:action with:self];
}

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  return [self performShortcut:event] || [super performKeyEquivalent:event];
}

@end
