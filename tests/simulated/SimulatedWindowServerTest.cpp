#include "platform/simulated/SimulatedWindowServer.h"

#include "tests/support/SimulatedFixture.h"

#include <memory>
#include <set>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using platform::Value;

class SimulatedWindowServerTest : public SimulatedFixture {
 protected:
  SimulatedWindowServerTest() : window_(platform().userInterface().createOverlayWindow({})) {}

  platform::WindowServer& server() { return platform().windowServer(); }
  std::set<SpaceID> attachments() { return desktop.windows().find(window_->number())->spaces(); }

  std::unique_ptr<platform::Window> window_;
};

TEST_F(SimulatedWindowServerTest, ReportsTheDesktopsAndTheActiveOne) {
  desktop.switchTo(desktop.desktopAt(2));
  EXPECT_EQ(server().managedDisplaySpaces(), desktop.spaces().managedDisplaySpaces());
  EXPECT_EQ(server().activeSpace(), desktop.desktopAt(2));
}

TEST_F(SimulatedWindowServerTest, ReportsWhatTheScriptPutsInPlaceOfTheTruth) {
  desktop.overrideManagedDisplaySpaces(Value("nonsense"));
  desktop.overrideActiveSpace(7);
  EXPECT_EQ(server().managedDisplaySpaces(), Value("nonsense"));
  EXPECT_EQ(server().activeSpace(), 7U);
  desktop.overrideManagedDisplaySpaces(std::nullopt);
  desktop.overrideActiveSpace(std::nullopt);
  EXPECT_EQ(server().managedDisplaySpaces(), desktop.spaces().managedDisplaySpaces());
  EXPECT_EQ(server().activeSpace(), desktop.desktopAt(0));
}

TEST_F(SimulatedWindowServerTest, MovesAWindowFromOneDesktopToAnother) {
  window_->orderFront();
  server().addWindowToSpace(window_->number(), desktop.desktopAt(1));
  EXPECT_EQ(attachments(), (std::set<SpaceID>{desktop.desktopAt(0), desktop.desktopAt(1)}));
  server().removeWindowFromSpace(window_->number(), desktop.desktopAt(0));
  EXPECT_EQ(attachments(), std::set<SpaceID>{desktop.desktopAt(1)});
}

TEST_F(SimulatedWindowServerTest, IgnoresAttachmentsThatCannotBeMade) {
  server().addWindowToSpace(window_->number(), 9999);
  server().addWindowToSpace(9999, desktop.desktopAt(0));
  server().removeWindowFromSpace(9999, desktop.desktopAt(0));
  server().removeWindowFromSpace(window_->number(), desktop.desktopAt(0));
  EXPECT_TRUE(attachments().empty());
}

}  // namespace
}  // namespace roomlattice::tests
