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

  /// Shows `element`, which is of the kind this was made for, in a view that is or will be a subview of `container`.
  void update(const ViewElement& element, NSView* container);

  /// The text field, for the element that has one.
  virtual MacTextField* textField() { return nullptr; }

 private:
  virtual void show(const ViewElement& element) = 0;

  /// The frame of the native view, whose margins may differ; asked for when the element is shown in it.
  virtual NSRect frameFor(const ViewElement& element) const;
};

/// `view` is the one whose element it is: it hears of clicks and of the editor's commands.
std::unique_ptr<ElementView> makeElementView(const ViewElement& element, View& view);

}  // namespace roomlattice::platform::macos
