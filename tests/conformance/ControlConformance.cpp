#include "platform/ControlEndpoint.h"

#include "tests/conformance/ConformanceTest.h"

#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CommandResult;
using platform::DesktopChange;
using platform::DesktopState;
using platform::Registration;

/// Keeps where it was told to go.
class Destinations final : public platform::Commands {
 public:
  std::vector<DesktopState> desktops() const override { return {}; }
  std::optional<DesktopState> currentDesktop() const override { return std::nullopt; }
  CommandResult switchTo(const std::string& desktop) override {
    list.push_back(desktop);
    return std::nullopt;
  }
  CommandResult switchToNext() override { return std::nullopt; }
  CommandResult switchToPrevious() override { return std::nullopt; }
  CommandResult rename(const std::string&, const std::string&) override { return std::nullopt; }
  CommandResult renameCurrent(const std::string&) override { return std::nullopt; }
  CommandResult showLabels() override { return std::nullopt; }
  CommandResult hideLabels() override { return std::nullopt; }
  CommandResult openMenu() override { return std::nullopt; }
  CommandResult openPreferences() override { return std::nullopt; }
  CommandResult startTour() override { return std::nullopt; }
  CommandResult quit() override { return std::nullopt; }
  Registration observe(std::function<void(const std::vector<DesktopChange>&)>) override { return {}; }

  std::vector<std::string> list;
};

using ControlConformance = ConformanceTest;

TEST_F(ControlConformance, BringsWhatOtherProgramsAskForWhileItIsServed) {
  Destinations destinations;
  Registration service = platform().control().serve(destinations);
  EXPECT_TRUE(runUntil([&] {
    backend().askForSwitch("Mail");
    return !destinations.list.empty();
  }));
  EXPECT_EQ(destinations.list.front(), "Mail");
  service.cancel();
  const auto before = destinations.list.size();
  backend().askForSwitch("Web");
  runFor(std::chrono::milliseconds(100));
  EXPECT_EQ(destinations.list.size(), before);
}

}  // namespace
}  // namespace roomlattice::tests
