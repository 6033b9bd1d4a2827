#pragma once

#include "platform/linux/bus/BusService.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/DesktopSource.h"
#include "platform/x11/desktops/EwmhDesktopSource.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::x11 {

/// KWin's desktops as it tells them on the session bus (org.kde.KWin, /VirtualDesktopManager). There each desktop has
/// an identifier that is kept over restarts and when others come and go, while the properties of EWMH know places only
/// and may lag behind. Where KWin cannot be heard on the bus, these have to do.
class KWinDesktopSource final : public DesktopSource {
 public:
  /// `changed` is called from the event loop when what is read has changed.
  KWinDesktopSource(X11Connection& connection, linux::MessageBus& bus, std::function<void()> changed);

  const DesktopList* known() override;
  void activate(std::size_t index) override;
  void rename(std::size_t index, const std::string& name) override;

  /// Waits for the first answer from the bus, but not beyond `limit`; reading takes EWMH's word if there was none.
  void waitForAnswer(std::chrono::milliseconds limit);

 private:
  enum class State { Waiting, Heard, Unheard };

  void request();
  void answered(const linux::BusMessage& answer);
  void currentChanged(const std::string& identifier);
  void ownerChanged(bool hasOwner);
  void loseTouch();
  void giveUpWaiting();

  linux::MessageBus& bus_;
  std::function<void()> changed_;
  EwmhDesktopSource ewmh_;
  State state_ = State::Waiting;
  DesktopList list_;
  bool requestAgain_ = false;
  bool requesting_ = false;
  linux::OneShotTimer patience_;
  linux::BusService service_;
  Registration loss_;
  Registration pendingCall_;
  std::vector<Registration> signals_;
};

}  // namespace roomlattice::platform::x11
