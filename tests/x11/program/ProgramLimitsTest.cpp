#include "tests/x11/session/Program.h"
#include "tests/x11/session/ProgramWindows.h"
#include "tests/x11/session/X11Session.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The address sanitizer takes terabytes of address space for itself.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool takesAllAddressSpace = true;
#else
constexpr bool takesAllAddressSpace = false;
#endif
#elif defined(__SANITIZE_ADDRESS__)
constexpr bool takesAllAddressSpace = true;
#else
constexpr bool takesAllAddressSpace = false;
#endif

class ProgramLimitsTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ProgramLimitsTest, ThatAreTooTightAreNamedInOneLine) {
  const std::string_view kind = std::string_view(GetParam()).substr(0, 2);
  if (takesAllAddressSpace && (kind == "-v" || kind == "-d")) {
    GTEST_SKIP() << "The address sanitizer needs more address space than this.";
  }
  const X11Session session;
  Program program = Program::throughShell("ulimit " + std::string(GetParam()) + "; exec \"$0\"");
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("ulimit")));
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, ProgramLimitsTest,
                         ::testing::Values("-n 12", "-n 16", "-n 24", "-n 32", "-n 48", "-n 64", "-v 300000",
                                           "-v 600000", "-d 30000", "-s 64", "-s 256"));

TEST(ProgramLimitsOfThreadsTest, AreNamedInOneLine) {
  const X11Session session;
  Environment environment;
  // The sanitizer looks for leaks by a thread of its own.
  environment.set("ASAN_OPTIONS", "detect_leaks=0");
  // The superuser has no such limit.
  const std::string asUser = geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
  Program program = Program::throughShell("exec " + asUser + "prlimit --nproc=1 \"$0\"");
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("ulimit -u")));
}

TEST(ProgramLimitsWideEnoughTest, LetTheProgramRun) {
  if (takesAllAddressSpace) {
    GTEST_SKIP() << "The address sanitizer needs more address space than this.";
  }
  const X11Session session;
  Program program = Program::throughShell("ulimit -S -n 64; ulimit -S -s 64; ulimit -v 1200000; exec \"$0\"");
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

class ProgramLimitsOfScaleTest : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(ProgramLimitsOfScaleTest, AreNamedInOneLine) {
  const X11Session session;
  Environment environment;
  environment.set(GetParam().first, GetParam().second);
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr(GetParam().first)));
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, ProgramLimitsOfScaleTest,
                         ::testing::Values(std::pair("QT_SCALE_FACTOR", "0"), std::pair("QT_SCALE_FACTOR", "-1"),
                                           std::pair("QT_SCALE_FACTOR", "1e9"), std::pair("QT_SCALE_FACTOR", "nan"),
                                           std::pair("QT_SCALE_FACTOR", "big"),
                                           std::pair("QT_SCREEN_SCALE_FACTORS", "1.5;screen=1000"),
                                           std::pair("QT_FONT_DPI", "0"), std::pair("QT_FONT_DPI", "1000000"),
                                           std::pair("QT_FONT_DPI", "96dpi")));

TEST(ProgramLimitsOfScalesTest, CountForAllSettingsTogether) {
  const X11Session session;
  Environment environment;
  environment.set("QT_SCALE_FACTOR", "8");
  environment.set("QT_FONT_DPI", "900");
  Program program;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("QT_FONT_DPI")));
}

TEST(ProgramLimitsOfScaleUsableTest, LetTheProgramRun) {
  const X11Session session;
  Environment environment;
  environment.set("QT_SCALE_FACTOR", "1.5");
  environment.set("QT_SCREEN_SCALE_FACTORS", "screen=1;2");
  environment.set("QT_FONT_DPI", "120");
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

/// The most address space that the process has ever had, in KiB.
std::int64_t peakOf(Program& program) {
  std::ifstream status("/proc/" + std::to_string(program.process().id()) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmPeak:")) {
      return std::stoll(line.substr(7));
    }
  }
  return 0;
}

TEST(ProgramLimitsOfWindowsTest, AreNotExceededWhateverAnotherClientSays) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.hasLogged("tour end")) << program.process().errorOutput();
  const auto connection = X11Connection::open();
  const auto item = ProgramWindows(*connection, program.process().id()).statusItem();
  ASSERT_TRUE(item);
  const std::int64_t before = peakOf(program);
  xcb_configure_notify_event_t event{};
  event.response_type = XCB_CONFIGURE_NOTIFY;
  event.event = item->id();
  event.window = item->id();
  event.width = 32767;
  event.height = 32767;
  xcb_send_event(connection->raw(), 0, item->id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY, reinterpret_cast<char*>(&event));
  connection->waitForServer();
  session.setDesktopCount(6);
  EXPECT_TRUE(program.knowsDesktop("desktop-6"));
  EXPECT_LT(peakOf(program), before + 500'000);
}

}  // namespace
}  // namespace roomlattice::tests
