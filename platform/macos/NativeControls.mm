#import "platform/macos/NativeControls.h"

#import "platform/macos/Colors.h"
#import "platform/macos/Fonts.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/ShortcutTextField.h"
#import "platform/macos/Strings.h"

#include <utility>

namespace roomlattice::platform::macos {
namespace {

constexpr Size colorWellSize{44.0, 24.0};
constexpr double sliderWidth = 100.0;
constexpr NSRect popUpFrame{{0.0, 0.0}, {200.0, 26.0}};

/// Sends what the user does with `control` to `function`.
NativeControl connected(NSControl* control, std::function<void(id)> function) {
  NativeControl native{.control = share(control),
                       .action = adopt([[RoomlatticeAction alloc] initWithFunction:std::move(function)])};
  [control setTarget:native.action.get()];
  [control setAction:@selector(invoke:)];
  return native;
}

CheckState toCheckState(NSInteger state) {
  if (state == NSControlStateValueMixed) {
    return CheckState::Mixed;
  }
  return state == NSControlStateValueOn ? CheckState::On : CheckState::Off;
}

NSInteger toNSControlStateValue(CheckState state) {
  switch (state) {
    case CheckState::Off:
      return NSControlStateValueOff;
    case CheckState::On:
      return NSControlStateValueOn;
    case CheckState::Mixed:
      return NSControlStateValueMixed;
  }
}

struct Maker {
  NativeControl operator()(const LabelControl& label) const {
    NSString* text = toNSString(label.text);
    NSTextField* field =
        label.wrapWidth ? [NSTextField wrappingLabelWithString:text] : [NSTextField labelWithString:text];
    [field setFont:toNSFont(label.font)];
    [field setTextColor:toNSColor(label.color)];
    if (label.wrapWidth) {
      [field setPreferredMaxLayoutWidth:*label.wrapWidth];
      [field setSelectable:NO];
    } else {
      [[field cell] setLineBreakMode:NSLineBreakByTruncatingTail];
    }
    return {.control = share<NSControl>(field), .action = {}};
  }

  NativeControl operator()(const SliderControl& slider) const {
    NSSlider* native = [NSSlider sliderWithValue:slider.value
                                        minValue:slider.minimum
                                        maxValue:slider.maximum
                                          target:nil
                                          action:nullptr];
    return connected(native,
                     [action = slider.action](id sender) { action([static_cast<NSSlider*>(sender) doubleValue]); });
  }

  NativeControl operator()(const CheckBoxControl& box) const {
    NSButton* native = [NSButton checkboxWithTitle:toNSString(box.title) target:nil action:nullptr];
    [native setAllowsMixedState:box.state == CheckState::Mixed];
    [native setState:toNSControlStateValue(box.state)];
    return connected(
        native, [action = box.action](id sender) { action(toCheckState([static_cast<NSButton*>(sender) state])); });
  }

  NativeControl operator()(const PopUpControl& popUp) const {
    NSPopUpButton* native = [[[NSPopUpButton alloc] initWithFrame:popUpFrame pullsDown:NO] autorelease];
    for (const std::string& item : popUp.items) {
      [native addItemWithTitle:toNSString(item)];
    }
    [native selectItemAtIndex:popUp.selectedIndex];
    return connected(native, [action = popUp.action](id sender) {
      action(static_cast<int>([static_cast<NSPopUpButton*>(sender) indexOfSelectedItem]));
    });
  }

  NativeControl operator()(const ColorWellControl& well) const {
    const NSRect frame = toNSRect({{}, colorWellSize});
    NSColorWell* native = [[[NSColorWell alloc] initWithFrame:frame] autorelease];
    [native setColor:toNSColor(well.color)];
    [native setTag:well.tag];
    return connected(native, [action = well.action](id sender) {
      NSColorWell* changed = sender;
      action([changed tag], toColor([changed color]));
    });
  }

  NativeControl operator()(const PushButtonControl& button) const {
    NSButton* native = [NSButton buttonWithTitle:toNSString(button.title) target:nil action:nullptr];
    [native setBezelStyle:NSBezelStyleRounded];
    return connected(native, [action = button.action](id) { action(); });
  }

  NativeControl operator()(const SelectableTextControl& text) const {
    NSTextField* field = [RoomlatticeShortcutTextField textFieldWithString:toNSString(text.text)];
    [field setEditable:NO];
    [field setSelectable:YES];
    [field setBezeled:YES];
    [field setBezelStyle:NSTextFieldRoundedBezel];
    [field setFont:toNSFont(text.font)];
    return {.control = share<NSControl>(field), .action = {}};
  }
};

Size visibleSize(NSControl* control) {
  return toSize([control alignmentRectForFrame:[control frame]].size);
}

}  // namespace

NativeControl makeControl(const Control& control) {
  return std::visit(Maker{}, control);
}

Size intrinsicSize(const Control& control) {
  @autoreleasepool {
    const NativeControl native = makeControl(control);
    NSControl* made = native.control.get();
    if (const auto* label = std::get_if<LabelControl>(&control)) {
      if (label->text.empty()) {
        [made setStringValue:@" "];
      }
      if (label->wrapWidth) {
        const NSRect room = NSMakeRect(0.0, 0.0, *label->wrapWidth, CGFLOAT_MAX);
        return toSize([[made cell] cellSizeForBounds:room]);
      }
    }
    if (std::holds_alternative<ColorWellControl>(control)) {
      return colorWellSize;
    }
    [made sizeToFit];
    Size size = visibleSize(made);
    if (std::holds_alternative<SliderControl>(control)) {
      size.width = sliderWidth;
    }
    return size;
  }
}

void place(NSControl* control, const Rect& frame) {
  [control setFrame:[control frameForAlignmentRect:toNSRect(frame)]];
}

}  // namespace roomlattice::platform::macos
