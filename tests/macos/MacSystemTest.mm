#import "platform/macos/MacSystem.h"

#import <AppKit/AppKit.h>

#import "platform/macos/Strings.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace roomlattice::platform::macos {
namespace {

std::string output(const std::variant<ProcessOutput, LaunchError>& result) {
  const auto* output = std::get_if<ProcessOutput>(&result);
  return output == nullptr ? "not launched" : output->bytes;
}

TEST(MacSystemTest, ReadsBothOutputsOfAChildInOnePipe) {
  EXPECT_EQ(output(MacSystem().run("/bin/sh", {"-c", "echo one; echo two >&2; echo three"})), "one\ntwo\nthree\n");
}

TEST(MacSystemTest, HandsArgumentsOverUnchanged) {
  EXPECT_EQ(output(MacSystem().run("/bin/echo", {"process == \"Roomlattice\"", "\u2026"})),
            "process == \"Roomlattice\" \u2026\n");
}

TEST(MacSystemTest, ReadsMoreThanAPipeHolds) {
  EXPECT_EQ(output(MacSystem().run("/bin/sh", {"-c", "head -c 300000 /dev/zero"})).size(), 300000U);
}

TEST(MacSystemTest, IgnoresTheExitStatus) {
  EXPECT_EQ(output(MacSystem().run("/bin/sh", {"-c", "echo no; exit 3"})), "no\n");
}

TEST(MacSystemTest, TellsWhyAChildDidNotStart) {
  const auto result = MacSystem().run("/no/such/tool", {"show"});
  const auto* error = std::get_if<LaunchError>(&result);
  ASSERT_NE(error, nullptr);
  EXPECT_NE(error->localizedDescription, "");
}

TEST(MacSystemTest, AsksTheLogToolForTheRecentLog) {
  const LogQuery query = MacSystem().recentLog();
  EXPECT_EQ(query.executable, "/usr/bin/log");
  EXPECT_EQ(query.command, "log show --predicate 'process == \"Roomlattice\"' --last 10m --style compact");
}

TEST(MacSystemTest, PutsPlainTextOnTheGeneralPasteboard) {
  MacSystem system;
  system.setPasteboardString("first");
  system.setPasteboardString("Copied \u2026 twice");
  NSPasteboard* pasteboard = [NSPasteboard generalPasteboard];
  EXPECT_EQ(toString([pasteboard stringForType:NSPasteboardTypeString]), "Copied \u2026 twice");
}

TEST(MacSystemTest, WritesStampedLinesToTheLog) {
  testing::internal::CaptureStderr();
  MacSystem().log("[Roomlattice] tour start: 4 steps 100%@");
  const std::string logged = testing::internal::GetCapturedStderr();
  EXPECT_NE(logged.find("] [Roomlattice] tour start: 4 steps 100%@\n"), std::string::npos) << logged;
}

}  // namespace
}  // namespace roomlattice::platform::macos
