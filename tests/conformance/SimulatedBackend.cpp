#include "platform/simulated/SimulatedPlatform.h"
#include "platform/simulated/SimulatedUser.h"
#include "tests/conformance/Backend.h"

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;

/// Its time is virtual: nothing waits.
class SimulatedBackend final : public Backend {
 public:
  SimulatedBackend() { desktop_.names().replace(platform::DesktopNames::Names()); }

  platform::Platform& platform() override { return platform_; }

  bool runUntil(const std::function<bool()>& condition) override {
    constexpr int turns = 3000;
    for (int turn = 0; turn < turns && !condition(); ++turn) {
      desktop_.advance(10ms);
    }
    return condition();
  }

  void runFor(std::chrono::milliseconds duration) override { desktop_.advance(duration); }

  void openMenu() override { user_.clicksStatusItem(); }
  void closeMenu() override { user_.clicks({}); }
  bool isMenuOpen() override { return desktop_.menu() != nullptr; }
  void askForSwitch(const std::string& desktop) override {
    if (platform::Commands* commands = platform_.control().commands()) {
      static_cast<void>(commands->switchTo(desktop));
    }
  }
  void pressReturn() override { user_.pressesKey(platform::keyCode::returnKey); }

 private:
  platform::simulated::SimulatedDesktop desktop_;
  platform::simulated::SimulatedUser user_{desktop_};
  platform::simulated::SimulatedPlatform platform_{desktop_};
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<SimulatedBackend>();
}

std::string_view backendName() {
  return "simulated";
}

}  // namespace roomlattice::tests
