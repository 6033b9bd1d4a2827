#import "platform/macos/MenuMirror.h"

#import <AppKit/AppKit.h>
#import <QuartzCore/QuartzCore.h>

#import "platform/macos/FoundationValues.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/MacEvents.h"
#import "platform/macos/MacStatusItem.h"
#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;

/// A row with one of everything.
class RowView final : public View {
 public:
  explicit RowView(std::string& heard) : heard_(heard) { setFrame({{}, {220.0, 24.0}}); }

  ViewContent content() const override {
    return {.elements = {
                {.frame = {{38.0, 2.0}, {100.0, 20.0}}, .hidden = isEditing, .kind = TextElement{.text = "Mail"}},
                {.frame = {{38.0, 2.0}, {172.0, 20.0}}, .hidden = !isEditing, .kind = TextFieldElement{}},
                {.frame = {{192.0, 3.0}, {18.0, 18.0}},
                 .hidden = isEditing,
                 .kind = ButtonElement{.symbol = {.name = "square.and.pencil", .accessibilityDescription = "Rename"},
                                       .toolTip = "Rename"}},
            }};
  }

  HitTarget hitTest(Point point) const override {
    if (View::hitTest(point) == HitTarget::None) {
      return HitTarget::None;
    }
    if (isEditing) {
      return point.x >= 38.0 ? HitTarget::TextField : HitTarget::View;
    }
    return point.x >= 192.0 ? HitTarget::Button : HitTarget::View;
  }

  void mouseEntered() override { heard_ += "entered "; }
  void mouseExited() override { heard_ += "exited "; }
  void mouseUp(Point point) override { heard_ += "up " + std::to_string(static_cast<int>(point.x)) + " "; }
  void buttonClicked() override { heard_ += "button "; }
  CommandDisposition doCommand(EditCommand command) override {
    heard_ += command == EditCommand::Cancel ? "cancel " : "newline ";
    return CommandDisposition::Handled;
  }

  void edit() {
    isEditing = true;
    contentChanged();
  }

  bool isEditing = false;

 private:
  std::string& heard_;
};

class MenuMirrorTest : public testing::Test {
 protected:
  MenuMirrorTest() {
    menu_.needsUpdate = [this](Menu& menu) {
      ++updates_;
      menu.items.clear();
      menu.items.emplace_back(ViewItem{std::make_unique<RowView>(heard_), Value::Dictionary{{"uuid", "A"}}});
      menu.items.emplace_back(SeparatorItem{});
      menu.items.emplace_back(CommandItem{"Preferences\u2026", ",", [this] { heard_ += "preferences "; }});
      menu.items.emplace_back(CommandItem{"Quit", "q", [this] { heard_ += "quit "; }, CommandRole::Quit});
    };
    item_.setMenu(&menu_);
  }
  ~MenuMirrorTest() override { gnustep::closeMenu(); }

  void open() { gnustep::openMenu([gnustep::statusItems() lastObject]); }
  NSMenu* native() { return [[gnustep::statusItems() lastObject] menu]; }
  NSMenuItem* item(NSInteger index) { return (NSMenuItem*)[native() itemAtIndex:index]; }
  NSView* rowView() { return [item(0) view]; }
  RowView& row() { return static_cast<RowView&>(*std::get<ViewItem>(menu_.items.front()).view); }

  NSEvent* mouse(NSEventType type, NSPoint inRow) {
    return [NSEvent mouseEventWithType:type
                              location:[rowView() convertPoint:inRow toView:nil]
                         modifierFlags:0
                             timestamp:0
                          windowNumber:[gnustep::menuWindow() windowNumber]
                               context:nil
                           eventNumber:0
                            clickCount:1
                              pressure:1.0];
  }

  NSEvent* key(NSString* characters) {
    return [NSEvent keyEventWithType:NSEventTypeKeyDown
                            location:NSZeroPoint
                       modifierFlags:0
                           timestamp:0
                        windowNumber:[gnustep::menuWindow() windowNumber]
                             context:nil
                          characters:characters
         charactersIgnoringModifiers:characters
                           isARepeat:NO
                             keyCode:0];
  }

  std::string heard_;
  int updates_ = 0;
  Menu menu_;
  MacStatusItem item_{VariableLength{}};
};

TEST_F(MenuMirrorTest, IsBroughtUpToDateBeforeItOpens) {
  EXPECT_EQ([native() numberOfItems], 0);
  open();
  ASSERT_EQ([native() numberOfItems], 4);
  EXPECT_NE([item(0) view], nil);
  EXPECT_EQ([[item(0) title] length], 0U);
  EXPECT_EQ(toValue([item(0) representedObject]), Value(Value::Dictionary{{"uuid", "A"}}));
  EXPECT_TRUE([item(1) isSeparatorItem]);
  EXPECT_EQ(toString([item(2) title]), "Preferences\u2026");
  open();
  EXPECT_EQ([native() numberOfItems], 4);
}

TEST_F(MenuMirrorTest, HasKeyEquivalentsWithCommand) {
  open();
  EXPECT_EQ(toString([item(2) keyEquivalent]), ",");
  EXPECT_EQ(toString([item(3) keyEquivalent]), "q");
  EXPECT_EQ([item(3) keyEquivalentModifierMask], static_cast<NSUInteger>(NSEventModifierFlagCommand));
}

TEST_F(MenuMirrorTest, SendsACommandToItsAction) {
  open();
  [NSApp sendAction:[item(2) action] to:[item(2) target] from:item(2)];
  EXPECT_EQ(heard_, "preferences ");
}

TEST_F(MenuMirrorTest, SendsACommandToItsActionAfterTheMenuHasClosed) {
  open();
  gnustep::closeMenu();
  [NSApp sendAction:[item(2) action] to:[item(2) target] from:item(2)];
  EXPECT_EQ(heard_, "preferences ");
}

TEST_F(MenuMirrorTest, LeavesTheItemsInAMenuThatFadesOut) {
  open();
  gnustep::closeMenu();
  EXPECT_EQ(row().host(), nullptr);
  EXPECT_EQ([native() numberOfItems], 4);
  EXPECT_EQ([[rowView() subviews] count], 3U);
}

TEST_F(MenuMirrorTest, HandsARowNothingMoreOnceTheMenuHasClosed) {
  open();
  NSEvent* release = mouse(NSLeftMouseUp, NSMakePoint(60, 12));
  gnustep::closeMenu();
  [rowView() mouseEntered:release];
  [rowView() mouseUp:release];
  [[[rowView() subviews] objectAtIndex:2] performClick:nil];
  EXPECT_EQ(heard_, "");
}

TEST_F(MenuMirrorTest, LeavesQuittingToTheApplication) {
  open();
  EXPECT_TRUE(sel_isEqual([item(3) action], @selector(terminate:)));
  EXPECT_EQ([item(3) target], nil);
}

TEST_F(MenuMirrorTest, LetsGoOfTheRowsOfTheLastOpening) {
  open();
  RowView* const first = &row();
  EXPECT_NE(first->host(), nullptr);
  gnustep::closeMenu();
  open();
  EXPECT_NE(row().host(), nullptr);
  EXPECT_EQ([[rowView() subviews] count], 3U);
}

TEST_F(MenuMirrorTest, TracksThePointerOverARow) {
  open();
  NSArray* areas = [rowView() trackingAreas];
  ASSERT_EQ([areas count], 1U);
  NSTrackingArea* area = [areas objectAtIndex:0];
  const NSTrackingAreaOptions expected =
      NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect;
  EXPECT_EQ([area options], expected);
  EXPECT_EQ([area owner], (id)rowView());
  [rowView() mouseEntered:mouse(NSMouseMoved, NSMakePoint(5, 5))];
  [rowView() mouseExited:mouse(NSMouseMoved, NSMakePoint(5, 5))];
  EXPECT_EQ(heard_, "entered exited ");
}

TEST_F(MenuMirrorTest, ReplacesItsTrackingArea) {
  open();
  NSTrackingArea* first = [[[[rowView() trackingAreas] lastObject] retain] autorelease];
  [rowView() updateTrackingAreas];
  EXPECT_EQ([[rowView() trackingAreas] count], 1U);
  EXPECT_NE([[rowView() trackingAreas] lastObject], first);
}

TEST_F(MenuMirrorTest, GivesClicksToWhatTheRowSays) {
  open();
  NSView* view = rowView();
  const auto hit = [&](CGFloat x) { return [view hitTest:NSMakePoint(x, NSMinY([view frame]) + 12.0)]; };
  EXPECT_EQ(hit(60.0), view);
  EXPECT_TRUE([hit(200.0) isKindOfClass:[NSButton class]]);
  EXPECT_EQ(hit(400.0), nil);
  row().edit();
  EXPECT_TRUE([hit(60.0) isKindOfClass:[NSTextField class]]);
  EXPECT_TRUE([(NSTextField*)hit(60.0) isEditable]);
}

TEST_F(MenuMirrorTest, HandsTheReleaseOfAClickOnInTheRowsCoordinates) {
  open();
  [rowView() mouseUp:mouse(NSLeftMouseUp, NSMakePoint(60, 12))];
  EXPECT_EQ(heard_, "up 60 ");
}

TEST_F(MenuMirrorTest, LeavesARowThatChangesWhereTheMenuPutIt) {
  open();
  const NSRect before = [rowView() frame];
  ASSERT_GT(NSMinY(before), 0.0);
  row().edit();
  EXPECT_TRUE(NSEqualRects([rowView() frame], before));
}

TEST_F(MenuMirrorTest, HasAPencilButton) {
  open();
  NSButton* button = [[rowView() subviews] objectAtIndex:2];
  EXPECT_FALSE([button isBordered]);
  EXPECT_EQ(static_cast<int>([button bezelStyle]), 2);
  EXPECT_EQ(static_cast<int>([button imagePosition]), 1);
  EXPECT_EQ(toString([button toolTip]), "Rename");
  EXPECT_EQ(toString([[button image] accessibilityDescription]), "Rename");
  [button performClick:nil];
  EXPECT_EQ(heard_, "button ");
}

TEST_F(MenuMirrorTest, HasAFieldToEditIn) {
  open();
  row().edit();
  NSTextField* field = [[rowView() subviews] objectAtIndex:1];
  EXPECT_FALSE([field isHidden]);
  EXPECT_TRUE([field isEditable]);
  EXPECT_TRUE([field isBordered]);
  EXPECT_FALSE([field isBezeled]);
  EXPECT_EQ(static_cast<int>([field bezelStyle]), 0);
  EXPECT_TRUE([field drawsBackground]);
  TextField* text = row().host()->textField();
  text->setText("Música");
  text->focusAndSelectAll();
  ASSERT_NE([field currentEditor], nil);
  EXPECT_EQ([[field currentEditor] selectedRange].length, 6U);
  [(NSTextView*)[field currentEditor] insertText:@"Film"];
  EXPECT_EQ(toString([[field currentEditor] string]), "Film");
  EXPECT_EQ(text->text(), "Film");
}

TEST_F(MenuMirrorTest, OffersTheRowTheEditorsCommands) {
  open();
  row().edit();
  row().host()->textField()->focusAndSelectAll();
  NSTextField* field = [[rowView() subviews] objectAtIndex:1];
  id delegate = [field delegate];
  NSTextView* editor = (NSTextView*)[field currentEditor];
  EXPECT_TRUE([delegate control:field textView:editor doCommandBySelector:@selector(insertNewline:)]);
  EXPECT_TRUE([delegate control:field textView:editor doCommandBySelector:@selector(cancelOperation:)]);
  EXPECT_FALSE([delegate control:field textView:editor doCommandBySelector:@selector(moveLeft:)]);
  EXPECT_EQ(heard_, "newline cancel ");
}

TEST_F(MenuMirrorTest, TakesKeysThatNoMonitorHears) {
  int monitored = 0;
  const Registration monitor = MacEvents().monitorLocalKeyDown([&](const KeyEvent&) {
    ++monitored;
    return KeyDisposition::PassOn;
  });
  open();
  row().edit();
  row().host()->textField()->focusAndSelectAll();
  [gnustep::menuWindow() sendEvent:key(@"F")];
  EXPECT_EQ(row().host()->textField()->text(), "F");
  [gnustep::menuWindow() sendEvent:key(@"\r")];
  // GNUstep has no key for this one.
  [[[[rowView() subviews] objectAtIndex:1] currentEditor] doCommandBySelector:@selector(cancelOperation:)];
  EXPECT_EQ(heard_, "newline cancel ");
  EXPECT_EQ(monitored, 0);
}

TEST_F(MenuMirrorTest, KeepsItsRowsWhenAnUpdateIsAskedForWhileItIsOpen) {
  open();
  row().edit();
  RowView* const edited = &row();
  [[native() delegate] menuNeedsUpdate:native()];
  EXPECT_EQ(&row(), edited);
  EXPECT_NE(row().host(), nullptr);
  EXPECT_TRUE(row().isEditing);
  open();
  EXPECT_FALSE(row().isEditing);
}

TEST_F(MenuMirrorTest, OpensAfterAnUpdateThatWasAskedForWhileItWasClosed) {
  [[native() delegate] menuNeedsUpdate:native()];
  item_.openMenu();
  EXPECT_TRUE(tests::runUntil([] { return gnustep::menuWindow() != nil; }));
}

TEST_F(MenuMirrorTest, DoesNotOpenAgainWhileItIsOpen) {
  open();
  RowView* const shown = &row();
  item_.openMenu();
  tests::runFor(50ms);
  EXPECT_EQ(&row(), shown);
}

TEST_F(MenuMirrorTest, OpensOnceForSeveralWishesOfOneTurn) {
  item_.openMenu();
  item_.openMenu();
  ASSERT_TRUE(tests::runUntil([] { return gnustep::menuWindow() != nil; }));
  gnustep::closeMenu();
  tests::runFor(50ms);
  EXPECT_EQ(gnustep::menuWindow(), nil);
  EXPECT_EQ(updates_, 1);
}

TEST_F(MenuMirrorTest, ClosesTheMenuForARow) {
  open();
  row().host()->cancelMenuTracking();
  EXPECT_EQ(gnustep::menuWindow(), nil);
}

TEST_F(MenuMirrorTest, LetsGoOfItsMenuWhenThatIsReplaced) {
  open();
  gnustep::closeMenu();
  item_.setMenu(nullptr);
  EXPECT_EQ(row().host(), nullptr);
  EXPECT_EQ(native(), nil);
}

}  // namespace
}  // namespace roomlattice::platform::macos
