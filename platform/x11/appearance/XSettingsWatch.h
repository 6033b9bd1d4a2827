#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform::x11 {

/// The settings that the screen's XSETTINGS manager publishes, as they are now.
class XSettingsWatch {
 public:
  /// `changed` is called from the event loop when they may have changed.
  XSettingsWatch(X11Connection& connection, std::function<void()> changed);

  /// Nothing when no manager runs or it has no such text.
  std::optional<std::string> text(const std::string& name) const;

 private:
  void batchEnded();
  void followManager();
  void read();

  X11Connection& connection_;
  std::function<void()> changed_;
  xcb_atom_t selection_;
  xcb_atom_t property_;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  std::map<std::string, std::string> texts_;
  // What was heard is looked into once for each batch of events: anybody may send as many as he likes.
  bool otherManager_ = false;
  bool otherSettings_ = false;
  Registration announcements_;
  Registration propertyEvents_;
  Registration destroyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11
