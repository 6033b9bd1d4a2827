#pragma once

#import <AppKit/AppKit.h>

#import "platform/macos/MenuMirror.h"
#import "platform/macos/ObjectPointer.h"

#include "platform/StatusItem.h"

#include <memory>

namespace roomlattice::platform::macos {

class MacStatusItem final : public StatusItem, private StatusButton {
 public:
  explicit MacStatusItem(const StatusItemLength& length);
  ~MacStatusItem() override;
  MacStatusItem(const MacStatusItem&) = delete;
  MacStatusItem& operator=(const MacStatusItem&) = delete;

  StatusButton* button() override;
  void setLength(const StatusItemLength& length) override;
  void setMenu(Menu* menu) override;
  void openMenu() override;

 private:
  void setContent(const StatusButtonContent& content) override;

  ObjectPointer<NSStatusItem> item_;
  std::unique_ptr<MenuMirror> menu_;
};

}  // namespace roomlattice::platform::macos
