#import "platform/macos/MacPlatform.h"

#include "tests/conformance/Backend.h"
#include "tests/macos/MainLoop.h"

namespace roomlattice::tests {
namespace {

/// On AppKit itself, with the desktops of whoever runs the tests. No test may open a menu: AppKit would stay in the
/// click for as long as the menu is open, and the test with it.
class MacBackend final : public Backend {
 public:
  platform::Platform& platform() override { return *platform_; }
  bool runUntil(const std::function<bool()>& condition) override { return tests::runUntil(condition); }
  void runFor(std::chrono::milliseconds duration) override { tests::runFor(duration); }

  void openMenu() override {}
  void closeMenu() override {}
  bool isMenuOpen() override { return false; }
  void pressReturn() override {}
  void askForSwitch(const std::string&) override {}

 private:
  std::unique_ptr<platform::Platform> platform_ = platform::macos::makePlatform();
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<MacBackend>();
}

std::string_view backendName() {
  return "macos";
}

}  // namespace roomlattice::tests
