#include "tests/linux/session/Limits.h"
#include "tests/x11/session/Program.h"
#include "tests/x11/session/ProgramWindows.h"
#include "tests/x11/session/X11Session.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace roomlattice::tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class ProgramStartOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override { environment_.set("DISPLAY", std::nullopt); }

  Environment environment_;
};

TEST_F(ProgramStartOptionsTest, AreExplainedWithoutADisplay) {
  Program program({"--help"});
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_THAT(program.process().output(), StartsWith("Usage: roomlattice"));
  EXPECT_THAT(program.process().errorOutput(), IsEmpty());
}

TEST_F(ProgramStartOptionsTest, GiveTheVersionWithoutADisplay) {
  Program program({"--version"});
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_THAT(program.process().output(), ::testing::MatchesRegex("roomlattice [0-9.]+\n"));
}

TEST_F(ProgramStartOptionsTest, SayWhereNothingCanBeWritten) {
  for (const char* option : {"--help", "--version"}) {
    Program program = Program::throughShell("exec \"$0\" " + std::string(option) + " >/dev/full");
    EXPECT_EQ(program.exitStatus(), 1) << option;
    EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("standard output"))) << option;
  }
}

class ProgramStartWrongArgumentTest : public ProgramStartOptionsTest,
                                      public ::testing::WithParamInterface<const char*> {};

TEST_P(ProgramStartWrongArgumentTest, IsNamedInOneLine) {
  Program program({GetParam()});
  EXPECT_EQ(program.exitStatus(), 2);
  EXPECT_THAT(program.complaints(), ElementsAre(AllOf(StartsWith("roomlattice: "), HasSubstr(GetParam()))));
  EXPECT_THAT(program.process().output(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramStartWrongArgumentTest,
                         ::testing::Values("--unknown", "-x", "file", "--help=1", "-style", "--display"));

struct Display {
  const char* name;
  std::optional<std::string> display;
  std::optional<std::string> waylandDisplay;
  std::optional<std::string> sessionType;
  const char* reason;
};

std::ostream& operator<<(std::ostream& stream, const Display& display) {
  return stream << display.name;
}

class ProgramStartUnusableDisplayTest : public ::testing::TestWithParam<Display> {};

TEST_P(ProgramStartUnusableDisplayTest, IsNamedInOneLine) {
  Environment environment;
  environment.set("DISPLAY", GetParam().display);
  environment.set("WAYLAND_DISPLAY", GetParam().waylandDisplay);
  environment.set("XDG_SESSION_TYPE", GetParam().sessionType);
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.process().errorOutput(), AllOf(StartsWith("roomlattice: "), HasSubstr(GetParam().reason)));
  EXPECT_THAT(program.complaints(), ::testing::SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramStartUnusableDisplayTest,
                         ::testing::Values(Display{"Unset", std::nullopt, std::nullopt, std::nullopt,
                                                   "DISPLAY is not set"},
                                           Display{"Empty", "", std::nullopt, "x11", "DISPLAY is not set"},
                                           Display{"Wayland", std::nullopt, "wayland-0", std::nullopt, "pure Wayland"},
                                           Display{"WaylandByType", "", "", "wayland", "pure Wayland"},
                                           Display{"OfNoServer", ":9876", std::nullopt, std::nullopt, ":9876"},
                                           Display{"NoName", "nonsense", std::nullopt, std::nullopt, "nonsense"},
                                           Display{"NoScreen", ":9876.99", "wayland-0", "wayland", ":9876.99"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ProgramStartTest, NeedsAScreenThatExists) {
  const X11Session session;
  Environment environment;
  environment.set("DISPLAY", session.display() + ".7");
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr(session.display() + ".7")));
}

class ProgramStartWithPermissionsTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ProgramStartWithPermissionsTest, ThatAreNoOrdinaryFileIsRefused) {
  const X11Session session;
  Environment environment;
  environment.set("XAUTHORITY", GetParam());
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("XAUTHORITY")));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramStartWithPermissionsTest, ::testing::Values("/dev/zero", "/tmp"));

TEST(ProgramStartTest, NeedsNoPermissions) {
  const X11Session session;
  Environment environment;
  environment.set("XAUTHORITY", "/dev/null");
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

class ProgramStartWithEnvironmentTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ProgramStartWithEnvironmentTest, ThatNamesNoOrdinaryFileIsPossible) {
  const X11Session session;
  const std::string pipe = session.home() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
  Environment environment;
  environment.set(GetParam(), pipe);
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
  EXPECT_TRUE(program.hasLogged("tour start"));
  EXPECT_THAT(program.complaints(), ElementsAre(AllOf(StartsWith("roomlattice: "), HasSubstr(GetParam()))));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramStartWithEnvironmentTest,
                         ::testing::Values("FONTCONFIG_FILE", "QT_LOGGING_CONF", "TZ", "XENVIRONMENT"));

TEST(ProgramStartTest, NeedsNoOutputThatIsOn) {
  X11Session session;
  session.run({"xrandr", "--fb", "1280x800", "--output", "screen", "--off"});
  Program program;
  EXPECT_TRUE(program.hasLogged("tour end")) << program.process().errorOutput();
  session.run({"xrandr", "--output", "screen", "--auto"});
  EXPECT_TRUE(program.isUp());
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_THAT(program.complaints(), IsEmpty());
}

TEST(ProgramStartTest, NeedsAWindowManager) {
  const X11Session session({.windowManager = std::nullopt});
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("no window manager that supports EWMH")));
}

TEST(ProgramStartTest, WaitsForAWindowManagerThatComesLater) {
  X11Session session({.windowManager = std::nullopt});
  Program program;
  session.startWindowManager(WindowManagerKind::Openbox);
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

TEST(ProgramStartTest, CanBeEndedWhileItWaitsForAWindowManager) {
  const X11Session session({.windowManager = std::nullopt});
  Program program;
  ASSERT_TRUE(program.handlesSignals());
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_THAT(program.complaints(), IsEmpty());
}

class ProgramStartUnderTest : public ::testing::TestWithParam<WindowManagerKind> {};

TEST_P(ProgramStartUnderTest, ShowsTheStatusItemAndTakesNoteOfTheDesktops) {
  const X11Session session({.windowManager = GetParam(), .desktops = 3});
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  EXPECT_TRUE(program.knowsDesktop(GetParam() == WindowManagerKind::KWin ? "test-desktop-3" : "desktop-3"));
  EXPECT_THAT(program.complaints(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EveryWindowManager, ProgramStartUnderTest,
                         ::testing::Values(WindowManagerKind::Openbox, WindowManagerKind::Xfwm4,
                                           WindowManagerKind::KWin),
                         ::testing::PrintToStringParamName());

TEST(ProgramStartTest, IsRefusedToASecondOneOnTheSameScreenWithoutABus) {
  X11Session session;
  session.stopBus();
  Program first;
  ASSERT_TRUE(first.isUp()) << first.process().errorOutput();
  Program second;
  EXPECT_EQ(second.exitStatus(), 1);
  EXPECT_THAT(second.complaints(), ElementsAre(HasSubstr("already")));
  EXPECT_TRUE(first.process().isRunning());
}

TEST(ProgramStartTest, AtLoginLeavesTheOneThatRunsAlone) {
  const X11Session session;
  Program first;
  ASSERT_TRUE(first.isUp()) << first.process().errorOutput();
  Program second({"--at-login"});
  EXPECT_EQ(second.exitStatus(), 0);
  EXPECT_THAT(second.complaints(), IsEmpty());
  const auto connection = platform::x11::X11Connection::open();
  EXPECT_FALSE(ProgramWindows(*connection, first.process().id()).popup());
}

TEST(ProgramStartTest, AtLoginWaitsForTheWindowManagerAndThenForAPanel) {
  X11Session session({.windowManager = std::nullopt});
  const auto panel = platform::x11::X11Connection::open();
  Program program({"--at-login"});
  const auto shows = [&] { return ProgramWindows(*panel, program.process().id()).statusItem().has_value(); };
  session.startWindowManager(WindowManagerKind::Openbox);
  EXPECT_FALSE(waitFor(shows, std::chrono::seconds(2)));
  const xcb_window_t window = xcb_generate_id(panel->raw());
  xcb_create_window(panel->raw(), XCB_COPY_FROM_PARENT, window, panel->root(), -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  xcb_set_selection_owner(panel->raw(), window, panel->atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
  panel->flush();
  EXPECT_TRUE(waitFor(shows)) << program.process().errorOutput();
}

TEST(ProgramStartTest, IsGrantedToOneOfManyThatStartAtOnce) {
  const X11Session session;
  std::vector<std::unique_ptr<Program>> programs;
  for (int i = 0; i < 5; ++i) {
    programs.push_back(std::make_unique<Program>());
  }
  EXPECT_TRUE(waitFor([&] {
    return std::ranges::count_if(programs, [](const auto& program) { return program->process().isRunning(); }) == 1;
  }));
  const auto winner =
      std::ranges::find_if(programs, [](const auto& program) { return program->process().isRunning(); });
  EXPECT_TRUE((*winner)->isUp());
}

TEST(ProgramStartTest, IsPossibleAgainAfterTheFirstWasKilled) {
  const X11Session session;
  Program first;
  ASSERT_TRUE(first.isUp()) << first.process().errorOutput();
  first.process().kill();
  Program second;
  EXPECT_TRUE(second.isUp()) << second.process().errorOutput();
}

TEST(ProgramStartTest, SetsDamagedSettingsAside) {
  const X11Session session;
  std::filesystem::create_directories(Program::settingsFile().parent_path());
  std::ofstream(Program::settingsFile()) << "{ damaged";
  Program program;
  EXPECT_TRUE(program.knowsDesktop("desktop-1"));
  EXPECT_TRUE(std::filesystem::exists(Program::settingsFile().string() + ".damaged-1"));
  EXPECT_TRUE(program.isUp());
}

TEST(ProgramStartTest, WorksOnWithAnUnusableFolderForSettings) {
  X11Session session;
  std::ofstream(session.home() / "file") << "not a folder";
  Environment environment;
  environment.set("XDG_CONFIG_HOME", (session.home() / "file").string());
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

TEST(ProgramStartTest, WorksWithoutAnyBus) {
  X11Session session;
  session.stopBus();
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
  program.process().signal(SIGTERM);
  EXPECT_EQ(program.exitStatus(), 0);
}

}  // namespace
}  // namespace roomlattice::tests
