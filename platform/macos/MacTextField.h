#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/ObjectPointer.h"
#import "platform/macos/ShortcutTextField.h"

#include "platform/View.h"

@class RoomlatticeTextFieldDelegate;

namespace roomlattice::platform::macos {

/// The editable field of a view, and the delegate that offers the view the commands of its editor.
class MacTextField final : public TextField {
 public:
  explicit MacTextField(View& view);
  ~MacTextField() override;
  MacTextField(const MacTextField&) = delete;
  MacTextField& operator=(const MacTextField&) = delete;

  std::string text() const override;
  void setText(const std::string& text) override;
  void focusAndSelectAll() override;
  bool interpret(const KeyEvent& event) override;

  NSTextField* get() const { return field_.get(); }

 private:
  ObjectPointer<RoomlatticeShortcutTextField> field_;
  ObjectPointer<RoomlatticeTextFieldDelegate> delegate_;
};

}  // namespace roomlattice::platform::macos
