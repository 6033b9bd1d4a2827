#import "platform/macos/MacTextField.h"

#import <AppKit/AppKit.h>

#import "platform/macos/MacKeyEvent.h"
#import "platform/macos/ObjectPointer.h"
#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include <string>

/// Stands behind a field and hears of what the field's editor leaves to others.
@interface CommandsProbe : NSView {
 @public
  std::string* heard_;
}
@end

@implementation CommandsProbe

- (void)undo:(id)sender {
  *heard_ += "undo ";
}

- (void)redo:(id)sender {
  *heard_ += "redo ";
}

@end

/// Tells in which order a field asks it for the keyboard.
@interface FocusProbe : NSWindow {
 @public
  std::string heard_;
}
@end

@implementation FocusProbe

- (void)makeKeyWindow {
  heard_ += "key ";
  [super makeKeyWindow];
}

- (BOOL)makeFirstResponder:(NSResponder*)responder {
  heard_ += "responder ";
  return [super makeFirstResponder:responder];
}

@end

namespace roomlattice::platform::macos {
namespace {

class FieldView final : public View {
 public:
  ViewContent content() const override { return {}; }
};

ObjectPointer<FocusProbe> makeWindow() {
  const auto window = adopt([[FocusProbe alloc] initWithContentRect:NSMakeRect(100, 100, 300, 100)
                                                          styleMask:NSWindowStyleMaskTitled
                                                            backing:NSBackingStoreBuffered
                                                              defer:NO]);
  [window.get() setReleasedWhenClosed:NO];
  return window;
}

/// A field in a window of its own, with "Mail" in it.
class MacTextFieldTest : public testing::Test {
 protected:
  MacTextFieldTest() {
    const auto probe = adopt([[CommandsProbe alloc] initWithFrame:NSMakeRect(0, 0, 300, 100)]);
    probe.get()->heard_ = &heard_;
    [window_.get() setContentView:probe.get()];
    [field_.get() setFrame:NSMakeRect(10, 10, 200, 22)];
    [probe.get() addSubview:field_.get()];
    [window_.get() orderFront:nil];
    field_.setText("Mail");
    [[NSPasteboard generalPasteboard] declareTypes:[NSArray arrayWithObject:NSPasteboardTypeString] owner:nil];
    [[NSPasteboard generalPasteboard] setString:@"Film" forType:NSPasteboardTypeString];
  }
  ~MacTextFieldTest() override { [window_.get() close]; }

  static NSEvent* key(NSString* characters, NSUInteger modifiers) {
    return [NSEvent keyEventWithType:NSEventTypeKeyDown
                            location:NSZeroPoint
                       modifierFlags:modifiers
                           timestamp:0
                        windowNumber:0
                             context:nil
                          characters:characters
         charactersIgnoringModifiers:characters
                           isARepeat:NO
                             keyCode:0];
  }

  /// As a key comes that no monitor has taken.
  bool press(NSString* characters, NSUInteger modifiers = NSEventModifierFlagCommand) {
    return [[window_.get() contentView] performKeyEquivalent:key(characters, modifiers)];
  }

  NSRange selection() { return [[field_.get() currentEditor] selectedRange]; }

  static std::string pasteboard() {
    return toString([[NSPasteboard generalPasteboard] stringForType:NSPasteboardTypeString]);
  }

  std::string heard_;
  ObjectPointer<FocusProbe> window_ = makeWindow();
  FieldView view_;
  MacTextField field_{view_};
};

TEST_F(MacTextFieldTest, HasASingleLine) {
  EXPECT_TRUE([[field_.get() cell] usesSingleLineMode]);
}

TEST_F(MacTextFieldTest, GivesItsWindowTheKeyboard) {
  window_.get()->heard_.clear();
  field_.focusAndSelectAll();
  EXPECT_EQ(window_.get()->heard_.find("key responder "), 0U) << window_.get()->heard_;
  EXPECT_EQ(selection().length, 4U);
}

TEST_F(MacTextFieldTest, PastesCopiesAndCutsWithoutAMainMenu) {
  field_.focusAndSelectAll();
  EXPECT_TRUE(press(@"v"));
  EXPECT_EQ(field_.text(), "Film");
  field_.setText("Music");
  field_.focusAndSelectAll();
  EXPECT_TRUE(press(@"c"));
  EXPECT_EQ(pasteboard(), "Music");
  EXPECT_EQ(field_.text(), "Music");
  field_.setText("Talk");
  field_.focusAndSelectAll();
  EXPECT_TRUE(press(@"x"));
  EXPECT_EQ(pasteboard(), "Talk");
  EXPECT_EQ(field_.text(), "");
}

TEST_F(MacTextFieldTest, SelectsAllWithoutAMainMenu) {
  field_.focusAndSelectAll();
  [[field_.get() currentEditor] setSelectedRange:NSMakeRange(1, 0)];
  EXPECT_TRUE(press(@"a"));
  EXPECT_EQ(selection().length, 4U);
}

TEST_F(MacTextFieldTest, LeavesUndoingToItsWindow) {
  field_.focusAndSelectAll();
  EXPECT_TRUE(press(@"z"));
  EXPECT_TRUE(press(@"Z", NSEventModifierFlagCommand | NSEventModifierFlagShift));
  EXPECT_EQ(heard_, "undo redo ");
}

TEST_F(MacTextFieldTest, LeavesOtherKeysToOthers) {
  field_.focusAndSelectAll();
  EXPECT_FALSE(press(@"v", 0));
  EXPECT_FALSE(press(@"v", NSEventModifierFlagCommand | NSEventModifierFlagOption));
  EXPECT_FALSE(press(@"v", NSEventModifierFlagCommand | NSEventModifierFlagControl));
  EXPECT_FALSE(press(@"v", NSEventModifierFlagCommand | NSEventModifierFlagShift));
  EXPECT_FALSE(press(@"q"));
  EXPECT_EQ(field_.text(), "Mail");
}

TEST_F(MacTextFieldTest, TakesNoKeyWhileNobodyEdits) {
  EXPECT_FALSE(press(@"v"));
  EXPECT_EQ(field_.text(), "Mail");
}

TEST_F(MacTextFieldTest, PerformsAShortcutThatAMonitorHasTaken) {
  EXPECT_FALSE(field_.interpret(MacKeyEvent(key(@"v", NSEventModifierFlagCommand))));
  field_.focusAndSelectAll();
  EXPECT_TRUE(field_.interpret(MacKeyEvent(key(@"v", NSEventModifierFlagCommand))));
  EXPECT_EQ(field_.text(), "Film");
  EXPECT_TRUE(field_.interpret(MacKeyEvent(key(@"s", 0))));
  EXPECT_EQ(field_.text(), "Films");
}

}  // namespace
}  // namespace roomlattice::platform::macos
