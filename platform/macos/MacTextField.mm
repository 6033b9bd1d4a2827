#import "platform/macos/MacTextField.h"

#import "platform/macos/MacKeyEvent.h"
#import "platform/macos/Strings.h"

#include <objc/runtime.h>

#include <optional>

namespace {

using roomlattice::platform::EditCommand;

std::optional<EditCommand> toEditCommand(SEL selector) {
  if (sel_isEqual(selector, @selector(insertNewline:))) {
    return EditCommand::InsertNewline;
  }
  if (sel_isEqual(selector, @selector(cancelOperation:))) {
    return EditCommand::Cancel;
  }
  return std::nullopt;
}

}  // namespace

@interface RoomlatticeTextFieldDelegate : NSObject <NSTextFieldDelegate> {
 @private
  roomlattice::platform::View* view_;
}

- (instancetype)initWithView:(roomlattice::platform::View*)view;

@end

@implementation RoomlatticeTextFieldDelegate

- (instancetype)initWithView:(roomlattice::platform::View*)view {
  self = [super init];
  if (self != nil) {
    view_ = view;
  }
  return self;
}

- (BOOL)control:(NSControl*)control textView:(NSTextView*)textView doCommandBySelector:(SEL)selector {
  const std::optional<EditCommand> command = toEditCommand(selector);
  return command && view_->doCommand(*command) == roomlattice::platform::CommandDisposition::Handled;
}

@end

namespace roomlattice::platform::macos {

MacTextField::MacTextField(View& view)
    : field_(adopt([[RoomlatticeShortcutTextField alloc] initWithFrame:NSZeroRect])),
      delegate_(adopt([[RoomlatticeTextFieldDelegate alloc] initWithView:&view])) {
  NSTextField* field = field_.get();
  [field setEditable:YES];
  [field setBordered:YES];
  [field setBezelStyle:NSTextFieldSquareBezel];
  [field setDrawsBackground:YES];
  [field setFocusRingType:NSFocusRingTypeDefault];
  // What is pasted may have several.
  [[field cell] setUsesSingleLineMode:YES];
  [field setDelegate:delegate_.get()];
}

MacTextField::~MacTextField() {
  [field_.get() setDelegate:nil];
}

std::string MacTextField::text() const {
  return toString([field_.get() stringValue]);
}

void MacTextField::setText(const std::string& text) {
  [field_.get() setStringValue:toNSString(text)];
}

void MacTextField::focusAndSelectAll() {
  // A menu's window is seldom the one with the keyboard. Once it is, keys come to the editor without a monitor, too.
  [[field_.get() window] makeKeyWindow];
  [[field_.get() window] makeFirstResponder:field_.get()];
  [[field_.get() currentEditor] selectAll:nil];
}

bool MacTextField::interpret(const KeyEvent& event) {
  NSText* editor = [field_.get() currentEditor];
  if (editor == nil) {
    return false;
  }
  NSEvent* key = static_cast<const MacKeyEvent&>(event).get();
  if (![field_.get() performShortcut:key]) {
    [editor interpretKeyEvents:[NSArray arrayWithObject:key]];
  }
  return true;
}

}  // namespace roomlattice::platform::macos
