#include "tests/linux/session/TextFile.h"
#include "tests/x11/session/ProgramSession.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

class ProgramSettingsTest : public ::testing::Test {
 protected:
  QRect item() {
    const std::optional<WindowProbe> item = user_.windows().statusItem();
    return item ? item->geometry().value_or(QRect()) : QRect();
  }

  /// As an editor does that writes the file in its place.
  static void edit(const std::string& what, const std::string& by) {
    const std::string text = textOf(Program::settingsFile());
    ASSERT_NE(text.find(what), std::string::npos) << text;
    writeText(Program::settingsFile(), replaceAll(text, what, by));
  }

  ProgramSession user_{{.desktops = 2}};
};

TEST_F(ProgramSettingsTest, TakeEffectAtOnceWhenTheirFileIsEdited) {
  ASSERT_TRUE(user_.startAndTour(R"({"MenuBarWidthMode": "fitToTitle", "StatusItem.Edge": "top"})"));
  ASSERT_NE(item().width(), 140);
  edit("fitToTitle", "maxTitleLength");
  EXPECT_TRUE(waitFor([this] { return item().width() == 140; }));
  edit("\"top\"", "\"bottom\"");
  EXPECT_TRUE(waitFor([this] { return item().top() > 700; }));
}

TEST_F(ProgramSettingsTest, KeepNobodyWaitingForTheDiskWhenTheirFileIsEdited) {
  ASSERT_TRUE(user_.startAndTour(R"({"MenuBarWidthMode": "fitToTitle"})"));
  ASSERT_TRUE(user_.program().knowsDesktop("desktop-2"));
  const std::string file = Program::settingsFile().string();
  const std::filesystem::path report = user_.session.home() / "calls";
  // Whoever reads the file now waits for much longer than this test does.
  ChildProcess disk({"strace", "-f", "-p", std::to_string(user_.program().process().id()), "-o", report.string(), "-P",
                     file, "-e", "trace=openat", "-e", "inject=openat:delay_enter=200000000"});
  if (!waitFor([&] { return disk.errorOutput().find("attached") != std::string::npos || !disk.isRunning(); }) ||
      !disk.isRunning()) {
    GTEST_SKIP() << "processes may not be traced";
  }
  edit("fitToTitle", "maxTitleLength");
  ASSERT_TRUE(waitFor([&] { return textOf(report).find("openat") != std::string::npos; }));
  ASSERT_TRUE(user_.switchTo(1));
  EXPECT_TRUE(waitFor([this] { return user_.statusItemColor() == defaultColorOf(1); }));
}

}  // namespace
}  // namespace roomlattice::tests
