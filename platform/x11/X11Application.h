#pragma once

#include "platform/Application.h"
#include "platform/linux/system/StartLimit.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/statusitem/MenuKeepingApplication.h"
#include "platform/x11/windows/OversizeFilter.h"

#include <chrono>
#include <optional>

namespace roomlattice::platform::x11 {

/// What the making of the toolkit, and then the launch of the program, may take, as StartLimit has it. The toolkit may
/// have to look through all fonts.
inline constexpr std::chrono::milliseconds launchTime = std::chrono::minutes(3);
inline constexpr const char* launchIsStuck = "something that is needed for the start, such as a file, does not answer";

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
  std::optional<linux::StartLimit> launchLimit_;
};

}  // namespace roomlattice::platform::x11
