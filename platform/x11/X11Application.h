#pragma once

#include "platform/Application.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/statusitem/MenuKeepingApplication.h"
#include "platform/x11/windows/OversizeFilter.h"

namespace roomlattice::platform::x11 {

/// The Qt application. It must be made before, and end after, everything that uses Qt.
class X11Application final : public Application {
 public:
  /// `argc` and `argv` must outlive it. Events of `connection` are delivered from now on, while the loop runs.
  X11Application(X11Connection& connection, int& argc, char** argv);

  void setActivationPolicy(ActivationPolicy policy) override;
  int run(std::function<void()> didFinishLaunching) override;
  void activateIgnoringOtherApps() override;
  void terminate() override;

 private:
  enum class State { Ready, Running, Terminated };

  X11Connection& connection_;
  MenuKeepingApplication application_;
  OversizeFilter oversizeFilter_;
  State state_ = State::Ready;
};

}  // namespace roomlattice::platform::x11
