#include "platform/linux/storage/LinuxDefaults.h"
#include "tests/x11/session/Program.h"
#include "tests/x11/session/ProgramWindows.h"
#include "tests/x11/session/X11Session.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Not the program's own limit, which is shorter, but one that a test ends by.
constexpr std::chrono::seconds deadline{15};

/// As long as it lives, children start with the signals blocked that ask a process to end.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGALRM}) {
      sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, &former_);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t former_{};
};

class ProgramEndBySignalTest : public ::testing::TestWithParam<int> {};

TEST_P(ProgramEndBySignalTest, IsInGoodOrder) {
  const X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  program.process().signal(GetParam());
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_THAT(program.complaints(), IsEmpty());
}

TEST_P(ProgramEndBySignalTest, IsOneForSignalsThatComeTogether) {
  const X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  for (int i = 0; i < 5; ++i) {
    program.process().signal(GetParam());
  }
  EXPECT_EQ(program.exitStatus(), 0) << program.process().errorOutput();
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramEndBySignalTest, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(ProgramEndTest, IsNotBroughtAboutByASignalItWasStartedToIgnore) {
  X11Session session;
  const auto former = std::signal(SIGHUP, SIG_IGN);
  Program program;
  std::signal(SIGHUP, former);
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  program.process().signal(SIGHUP);
  program.process().signal(SIGHUP);
  session.setDesktopCount(6);
  EXPECT_TRUE(program.knowsDesktop("desktop-6"));
  EXPECT_TRUE(program.process().isRunning());
}

class ProgramEndWhileStuckTest : public ::testing::TestWithParam<int> {};

TEST_P(ProgramEndWhileStuckTest, ComesAlthoughTheServerHasStopped) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.hasLogged("tour end")) << program.process().errorOutput();
  session.signalServer(SIGSTOP);
  program.process().signal(GetParam());
  EXPECT_TRUE(program.process().waitForEnd(deadline));
}

TEST_P(ProgramEndWhileStuckTest, ComesAlthoughItCannotConnect) {
  X11Session session;
  session.signalServer(SIGSTOP);
  Program program;
  ASSERT_TRUE(program.handlesSignals());
  program.process().signal(GetParam());
  EXPECT_TRUE(program.process().waitForEnd(deadline));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramEndWhileStuckTest, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(ProgramEndBySignalTest, ComesAlthoughWhoeverStartedItHadBlockedThem) {
  const X11Session session;
  const SignalsBlocked blocked;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
}

class ProgramEndWithServerTest : public ::testing::TestWithParam<int> {};

TEST_P(ProgramEndWithServerTest, EndsTheProgramWithOneLine) {
  for (int round = 0; round < 2; ++round) {
    X11Session session;
    Program program;
    ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
    session.endServer(GetParam());
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_THAT(program.complaints(), ElementsAre("roomlattice: the X server has gone"));
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramEndWithServerTest, ::testing::Values(SIGKILL, SIGTERM));

TEST(ProgramEndWithServerTest, EndsTheProgramAlsoWhileItStarts) {
  std::mt19937 random(4711);
  std::uniform_int_distribution<int> turns(0, 60);
  for (int round = 0; round < 4; ++round) {
    // The program is not to find the server of another test in place of the one that has gone.
    X11Session session({.display = 1000 + getpid() % 50000});
    Program program;
    int left = turns(random);
    waitFor([&] { return left-- == 0; });
    session.endServer(SIGKILL);
    // The toolkit itself falls over a server that goes in the middle of its start.
    EXPECT_THAT(program.exitStatus(), ::testing::Optional(::testing::Ne(0)));
  }
}

TEST(ProgramEndWithWindowManagerTest, EndsTheProgramWithOneLine) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  session.stopWindowManager();
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("window manager has gone")));
}

class ProgramEndOrReplacedWindowManagerTest
    : public ::testing::TestWithParam<std::pair<WindowManagerKind, WindowManagerKind>> {};

TEST_P(ProgramEndOrReplacedWindowManagerTest, IsFollowedByTheProgram) {
  X11Session session({.windowManager = GetParam().first, .desktops = 2});
  Program program;
  ASSERT_TRUE(program.hasLogged("tour end")) << program.process().errorOutput();
  session.startWindowManager(GetParam().second);
  // Under KWin desktops have another identity.
  EXPECT_TRUE(program.knowsDesktop(GetParam().second == WindowManagerKind::KWin ? "test-desktop-2" : "desktop-2"));
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
  const auto connection = platform::x11::X11Connection::open();
  const ProgramWindows windows(*connection, program.process().id());
  for (const int desktop : {1, 0, 1}) {
    session.run({"wmctrl", "-s", std::to_string(desktop)});
    ASSERT_TRUE(waitFor([&] { return session.currentDesktop() == desktop; }));
    const auto other = static_cast<std::uint32_t>(1 - desktop);
    EXPECT_TRUE(waitFor([&] {
      const std::vector<WindowProbe> labels = windows.labelsOn(other);
      return labels.size() == 1 && labels[0].passesClicks();
    })) << "on desktop "
        << desktop;
  }
  EXPECT_THAT(program.complaints(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramEndOrReplacedWindowManagerTest,
                         ::testing::Values(std::pair(WindowManagerKind::Openbox, WindowManagerKind::KWin),
                                           std::pair(WindowManagerKind::KWin, WindowManagerKind::Xfwm4),
                                           std::pair(WindowManagerKind::Xfwm4, WindowManagerKind::Openbox)));

TEST(ProgramEndOrRestartedWindowManagerTest, IsTakenForTheSameByTheProgram) {
  X11Session session({.desktops = 2});
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  session.stopWindowManager();
  session.startWindowManager(WindowManagerKind::Openbox);
  session.setDesktopCount(5);
  EXPECT_TRUE(program.knowsDesktop("desktop-5"));
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
  EXPECT_THAT(program.complaints(), IsEmpty());
}

TEST(ProgramEndByKillTest, LeavesItsSettingsWholeAtAnyMoment) {
  std::mt19937 random(4711);
  std::uniform_int_distribution<int> turns(0, 20);
  X11Session session({.desktops = 1});
  std::filesystem::create_directories(Program::settingsFile().parent_path());
  std::ofstream(Program::settingsFile()) << R"({"SpaceNames": {"desktop-1": "Mail"}})";
  for (int round = 0; round < 6; ++round) {
    session.setDesktopCount(1);
    Program program;
    ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
    for (int count = 2; count < 2 + turns(random); ++count) {
      session.run({"wmctrl", "-n", std::to_string(count)});  // each new desktop is written down
    }
    program.process().kill();
    const platform::linux::LinuxDefaults defaults(Program::settingsFile(),
                                                  [](const std::string& line) { FAIL() << line; });
    const auto names = defaults.object("SpaceNames");
    ASSERT_TRUE(names.has_value());
    EXPECT_EQ(*names, platform::Value(platform::Value::Dictionary{{"desktop-1", "Mail"}}));
  }
  EXPECT_FALSE(std::filesystem::exists(Program::settingsFile().string() + ".damaged-1"));
}

TEST(ProgramEndOfTheBusTest, IsSurvivedByTheProgram) {
  X11Session session({.windowManager = WindowManagerKind::KWin, .desktops = 2});
  Program program;
  ASSERT_TRUE(program.knowsDesktop("test-desktop-2"));
  session.stopBus();
  EXPECT_TRUE(program.knowsDesktop("desktop-2"));
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
}

}  // namespace
}  // namespace roomlattice::tests
