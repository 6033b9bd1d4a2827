#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/MacTextField.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/View.h"

#include <memory>

namespace roomlattice::platform::macos {

/// The native form of one element of a view, in that view's native form.
class ElementView {
 public:
  virtual ~ElementView() = default;

  virtual NSView* get() const = 0;

  /// Shows `element`, which is of the kind this was made for.
  virtual void update(const ViewElement& element) = 0;

  /// The text field, for the element that has one.
  virtual MacTextField* textField() { return nullptr; }
};

/// `view` is the one whose element it is: it hears of clicks and of the editor's commands.
std::unique_ptr<ElementView> makeElementView(const ViewElement& element, View& view);

}  // namespace roomlattice::platform::macos
