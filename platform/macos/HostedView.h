#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/ElementViews.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/View.h"

#include <vector>

@class RoomlatticeView;

namespace roomlattice::platform::macos {

/// Shows one of the program's views in an NSView, as long as it lives; the view must live as long.
class HostedView final : public ViewHost {
 public:
  explicit HostedView(View& view);
  ~HostedView() override;
  HostedView(const HostedView&) = delete;
  HostedView& operator=(const HostedView&) = delete;

  void viewChanged() override;
  TextField* textField() override;
  void cancelMenuTracking() override;

  NSView* get() const;

  /// The pixels of what shows it are others.
  void pixelsChanged();

  /// The subview that takes a click at `point`, in the view's coordinates; nil for none.
  NSView* hitTest(Point point) const;

  View& view() const { return view_; }

 private:
  template <class Element>
  ElementView* find() const;

  View& view_;
  ObjectPointer<RoomlatticeView> native_;
  ViewContent shown_;
  std::vector<std::unique_ptr<ElementView>> elements_;
};

}  // namespace roomlattice::platform::macos
