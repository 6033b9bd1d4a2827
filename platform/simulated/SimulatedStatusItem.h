#pragma once

#include "platform/StatusItem.h"
#include "platform/simulated/DisplaySettings.h"
#include "platform/simulated/Faults.h"
#include "platform/simulated/StatusBar.h"

namespace roomlattice::platform::simulated {

/// A status item and its button in one; the button keeps what it shows for whoever looks.
class SimulatedStatusItem final : public StatusItem, private StatusButton {
 public:
  SimulatedStatusItem(const StatusItemLength& length, const DisplaySettings& settings, const Faults& faults,
                      StatusBar& bar);
  SimulatedStatusItem(const SimulatedStatusItem&) = delete;
  SimulatedStatusItem& operator=(const SimulatedStatusItem&) = delete;

  StatusButton* button() override;
  void setLength(const StatusItemLength& length) override { length_ = length; }
  void setMenu(Menu* menu) override;
  void openMenu() override;

  const StatusButtonContent& content() const { return content_; }
  const StatusItemLength& length() const { return length_; }
  Menu* menu() const { return menu_; }

  /// How often the program has set the button's content.
  int contentWrites() const { return contentWrites_; }

  /// The item's width in points. Of variable length, it is as wide as its image or else as its title.
  double width() const;

  /// Where the item stands: 24 points high at the top of the primary screen, its right edge 200 points from the
  /// screen's. Empty while there is no screen.
  Rect frame() const;

  /// A user's click: opens the item's menu below it, or closes it if it is open. Nothing opens without a menu or a
  /// button to click.
  void click();

 private:
  void setContent(const StatusButtonContent& content) override;

  const DisplaySettings& settings_;
  const Faults& faults_;
  StatusBar& bar_;
  StatusItemLength length_;
  StatusButtonContent content_;
  Menu* menu_ = nullptr;
  int contentWrites_ = 0;
  Registration registration_;
};

}  // namespace roomlattice::platform::simulated
