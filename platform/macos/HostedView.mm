#import "platform/macos/HostedView.h"

#import "platform/macos/Geometry.h"
#import "platform/macos/Layers.h"

using roomlattice::platform::View;
using roomlattice::platform::macos::HostedView;
using roomlattice::platform::macos::toPoint;

namespace {

/// Tells a view what AppKit has to tell, as long as it is hosted.
template <class News>
void tell(HostedView* host, News news) {
  if (host != nullptr) {
    news(host->view());
  }
}

}  // namespace

/// The NSView of a hosted view. It may outlive its host, as a picture that AppKit still shows.
@interface RoomlatticeView : NSView {
 @public
  HostedView* host_;
  NSTrackingArea* trackingArea_;
}
@end

@implementation RoomlatticeView

- (void)dealloc {
  [trackingArea_ release];
  [super dealloc];
}

- (void)updateTrackingAreas {
  [super updateTrackingAreas];
  if (trackingArea_ != nil) {
    [self removeTrackingArea:trackingArea_];
    [trackingArea_ release];
  }
  const NSTrackingAreaOptions options =
      NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect;
  trackingArea_ = [[NSTrackingArea alloc] initWithRect:[self bounds] options:options owner:self userInfo:nil];
  [self addTrackingArea:trackingArea_];
}

- (NSView*)hitTest:(NSPoint)point {
  return host_ == nullptr ? nil : host_->hitTest(toPoint([self convertPoint:point fromView:[self superview]]));
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
  return YES;
}

// Without this one a click would go on to what is behind and its end would not come here.
- (void)mouseDown:(NSEvent*)event {
}

- (void)mouseUp:(NSEvent*)event {
  [[self retain] autorelease];
  const auto point = toPoint([self convertPoint:[event locationInWindow] fromView:nil]);
  tell(host_, [point](View& view) { view.mouseUp(point); });
}

- (void)mouseEntered:(NSEvent*)event {
  tell(host_, [](View& view) { view.mouseEntered(); });
}

- (void)mouseExited:(NSEvent*)event {
  tell(host_, [](View& view) { view.mouseExited(); });
}

@end

namespace roomlattice::platform::macos {

HostedView::HostedView(View& view)
    : view_(view), native_(adopt([[RoomlatticeView alloc] initWithFrame:toNSRect(view.frame())])) {
  native_.get()->host_ = this;
  view_.setHost(this);
  viewChanged();
}

HostedView::~HostedView() {
  view_.setHost(nullptr);
  native_.get()->host_ = nullptr;
}

NSView* HostedView::get() const {
  return native_.get();
}

void HostedView::viewChanged() {
  @autoreleasepool {
    // Where it stands is the menu's business, or the window's.
    if (toSize([native_.get() frame].size) != view_.frame().size) {
      [native_.get() setFrameSize:toNSSize(view_.frame().size)];
    }
    ViewContent content = view_.content();
    setLayerBackground(native_.get(), content.background, content.cornerRadius);
    for (std::size_t i = 0; i < content.elements.size(); ++i) {
      if (i == elements_.size()) {
        elements_.push_back(makeElementView(content.elements[i], view_));
        [native_.get() addSubview:elements_.back()->get()];
      } else if (content.elements[i] != shown_.elements[i]) {
        elements_[i]->update(content.elements[i]);
      }
    }
    shown_ = std::move(content);
    [native_.get() setNeedsDisplay:YES];
  }
}

template <class Element>
ElementView* HostedView::find() const {
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    if (std::holds_alternative<Element>(shown_.elements[i].kind)) {
      return elements_[i].get();
    }
  }
  return nullptr;
}

TextField* HostedView::textField() {
  ElementView* element = find<TextFieldElement>();
  return element == nullptr ? nullptr : element->textField();
}

void HostedView::cancelMenuTracking() {
  // Ends this object where it succeeds at once.
  [[[native_.get() enclosingMenuItem] menu] cancelTracking];
}

NSView* HostedView::hitTest(Point point) const {
  const auto native = [](ElementView* element) { return element == nullptr ? nil : element->get(); };
  switch (view_.hitTest(point)) {
    case HitTarget::None:
      return nil;
    case HitTarget::View:
      return native_.get();
    case HitTarget::Button:
      return native(find<ButtonElement>());
    case HitTarget::TextField:
      return native(find<TextFieldElement>());
  }
}

}  // namespace roomlattice::platform::macos
