#import "platform/macos/MacStatusItem.h"

#import "platform/macos/Colors.h"
#import "platform/macos/Images.h"
#import "platform/macos/Layers.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {
namespace {

struct ToNSLength {
  CGFloat operator()(const VariableLength&) const { return NSVariableStatusItemLength; }
  CGFloat operator()(const SquareLength&) const { return NSSquareStatusItemLength; }
  CGFloat operator()(const FixedLength& fixed) const { return fixed.points; }
};

CGFloat toNSLength(const StatusItemLength& length) {
  return std::visit(ToNSLength{}, length);
}

NSAttributedString* toNSAttributedString(const StatusTitle& title) {
  // The menu bar's own font would not apply to an attributed title without one, but a plain 12-point one.
  NSMutableDictionary* attributes = [NSMutableDictionary dictionaryWithObject:[NSFont menuBarFontOfSize:0.0]
                                                                       forKey:NSFontAttributeName];
  if (title.color) {
    [attributes setObject:toNSColor(*title.color) forKey:NSForegroundColorAttributeName];
  }
  return [[[NSAttributedString alloc] initWithString:toNSString(toSingleLine(title.text))
                                          attributes:attributes] autorelease];
}

}  // namespace

MacStatusItem::MacStatusItem(const StatusItemLength& length)
    : item_(share([[NSStatusBar systemStatusBar] statusItemWithLength:toNSLength(length)])) {}

MacStatusItem::~MacStatusItem() {
  [item_.get() setMenu:nil];
  [[NSStatusBar systemStatusBar] removeStatusItem:item_.get()];
}

StatusButton* MacStatusItem::button() {
  return [item_.get() button] == nil ? nullptr : this;
}

void MacStatusItem::setLength(const StatusItemLength& length) {
  [item_.get() setLength:toNSLength(length)];
}

void MacStatusItem::setMenu(Menu* menu) {
  std::unique_ptr<MenuMirror> mirror = menu == nullptr ? nullptr : std::make_unique<MenuMirror>(*menu);
  [item_.get() setMenu:mirror == nullptr ? nil : mirror->get()];
  menu_ = std::move(mirror);
}

void MacStatusItem::openMenu() {
  NSStatusBarButton* button = [item_.get() button];
  if (button == nil || menu_ == nullptr || menu_->isOpen()) {
    return;
  }
  // AppKit stays in the click until the menu has closed. A second one would wait, and open it again then.
  [NSObject cancelPreviousPerformRequestsWithTarget:button selector:@selector(performClick:) object:nil];
  [button performSelector:@selector(performClick:) withObject:nil afterDelay:0.0];
}

void MacStatusItem::setContent(const StatusButtonContent& content) {
  @autoreleasepool {
    NSStatusBarButton* button = [item_.get() button];
    [button setContentTintColor:nil];
    setLayerBackground(button, content.background, content.cornerRadius);
    [button setImage:content.image ? toNSImage(*content.image) : nil];
    if (content.title.color || content.title.text.empty()) {
      [button setAttributedTitle:toNSAttributedString(content.title)];
    } else {
      [button setTitle:toNSString(toSingleLine(content.title.text))];
    }
  }
}

}  // namespace roomlattice::platform::macos
