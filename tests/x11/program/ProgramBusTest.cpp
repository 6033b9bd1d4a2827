#include "tests/linux/session/FakeService.h"
#include "tests/x11/session/Program.h"
#include "tests/x11/session/X11Session.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

TEST(ProgramBusTest, NeedNotAnswerForTheProgramToStart) {
  X11Session session({.desktops = 3});
  session.signalBus(SIGSTOP);
  Program program;
  EXPECT_TRUE(program.isUp());
  EXPECT_TRUE(program.knowsDesktop("desktop-3"));
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0) << program.process().errorOutput();
  EXPECT_THAT(program.complaints(), ::testing::IsEmpty());
}

TEST(ProgramBusTest, MayHaveAServiceForAccessibilityThatDoesNotAnswer) {
  const X11Session session;
  const FakeService launcher(std::getenv("DBUS_SESSION_BUS_ADDRESS"), "org.a11y.Bus");
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

TEST(ProgramBusTest, MayBeNamedForAccessibilityByTheServerAndNotAnswer) {
  X11Session session;
  const TemporaryFolder folder;
  const BusDaemon accessibility(folder.path());
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", session.busAddress());
  accessibility.signal(SIGSTOP);
  session.run({"xprop", "-root", "-f", "AT_SPI_BUS", "8s", "-set", "AT_SPI_BUS", accessibility.address()});
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

TEST(ProgramBusTest, MayGetAServiceForAccessibilityThatDoesNotAnswer) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.hasLogged("tour end")) << program.process().errorOutput();
  const FakeService launcher(std::getenv("DBUS_SESSION_BUS_ADDRESS"), "org.a11y.Bus");
  session.setDesktopCount(6);
  EXPECT_TRUE(program.knowsDesktop("desktop-6"));
}

TEST(ProgramBusTest, NeedNotAnswerWhileTheProgramRuns) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  session.signalBus(SIGSTOP);
  session.setDesktopCount(6);
  EXPECT_TRUE(program.knowsDesktop("desktop-6"));
  EXPECT_TRUE(program.hasLogged("tour end"));
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0) << program.process().errorOutput();
}

}  // namespace
}  // namespace roomlattice::tests
