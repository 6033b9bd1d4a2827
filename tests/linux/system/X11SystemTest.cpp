#include "platform/linux/system/X11System.h"

#include "tests/x11/session/Environment.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QClipboard>
#include <QGuiApplication>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>

namespace roomlattice::tests {
namespace {

using platform::LaunchError;
using platform::ProcessOutput;
using platform::x11::X11System;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string outputOf(X11System& system, const std::string& script) {
  const auto result = system.run("/bin/sh", {"-c", script});
  const auto* output = std::get_if<ProcessOutput>(&result);
  return output == nullptr ? "(not launched)" : output->bytes;
}

TEST(X11System, GivesBothOutputsOfAChildInTheOrderWritten) {
  X11System system;
  EXPECT_EQ(outputOf(system, "echo one; echo two >&2; echo three"), "one\ntwo\nthree\n");
}

TEST(X11System, HandsArgumentsOverAsTheyAre) {
  X11System system;
  const auto result = system.run("/usr/bin/printf", {"[%s]", "a b", "\"c\"", "", "*"});
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes, "[a b][\"c\"][][*]");
}

TEST(X11System, GivesEveryByteOfALargeOutput) {
  X11System system;
  EXPECT_EQ(outputOf(system, "head -c 3000000 /dev/zero").size(), 3000000U);
}

TEST(X11System, HandsItsEnvironmentAndItsFolderDown) {
  Environment environment;
  environment.set("ROOMLATTICE_TEST", "inherited");
  X11System system;
  EXPECT_EQ(outputOf(system, "echo $ROOMLATTICE_TEST; pwd -P"),
            "inherited\n" + std::filesystem::current_path().string() + "\n");
}

TEST(X11System, DoesNotLookAtTheExitStatus) {
  X11System system;
  EXPECT_EQ(outputOf(system, "echo out; exit 3"), "out\n");
  EXPECT_EQ(outputOf(system, "echo out; kill -9 $$"), "out\n");
}

TEST(X11System, WaitsForAllWhoHoldTheOutput) {
  X11System system;
  EXPECT_EQ(outputOf(system, "(sleep 0.2; echo late) & echo early"), "early\nlate\n");
}

/// The files that any child inherits from whoever started the tests.
std::string inheritedFiles() {
  std::string numbers;
  for (int file = 3; file < 1024; ++file) {
    const int flags = fcntl(file, F_GETFD);
    if (flags >= 0 && (flags & FD_CLOEXEC) == 0) {
      numbers += std::to_string(file) + "\n";
    }
  }
  return numbers;
}

TEST(X11System, GivesAChildNoInputAndNoFilesOfItsOwn) {
  X11System system;
  const std::string script =
      "cat; for file in $(seq 3 1023); do if [ -e /proc/$$/fd/$file ]; then echo $file; fi; done";
  EXPECT_EQ(outputOf(system, script), inheritedFiles());
}

TEST(X11System, ResetsSignalsForAChild) {
  const auto former = std::signal(SIGPIPE, SIG_IGN);
  X11System system;
  const std::string line = outputOf(system, "grep SigIgn /proc/self/status");
  std::signal(SIGPIPE, former);
  const std::uint64_t ignored = std::stoull(line.substr(line.find('\t') + 1), nullptr, 16);
  EXPECT_EQ(ignored >> (SIGPIPE - 1U) & 1U, 0U) << line;
}

TEST(X11System, LeavesNoZombieAndNoOpenFile) {
  X11System system;
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
  };
  outputOf(system, "true");
  const auto before = openFiles();
  for (int round = 0; round < 20; ++round) {
    outputOf(system, "true");
    system.run("/nonexistent", {});
  }
  EXPECT_EQ(openFiles(), before);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

class CannotBeLaunched : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(CannotBeLaunched, AndSaysWhyInOneLine) {
  X11System system;
  const auto result = system.run(GetParam().first, {"argument"});
  const auto* error = std::get_if<LaunchError>(&result);
  ASSERT_NE(error, nullptr);
  EXPECT_THAT(error->localizedDescription, HasSubstr(GetParam().second));
  EXPECT_THAT(error->localizedDescription, ::testing::Not(HasSubstr("\n")));
}

INSTANTIATE_TEST_SUITE_P(X11System, CannotBeLaunched,
                         ::testing::Values(std::pair("/nonexistent", "No such file or directory"),
                                           std::pair("/usr/bin", "Permission denied"),
                                           std::pair("/etc/passwd", "Permission denied"),
                                           std::pair("", "No such file or directory")));

TEST(X11System, LetsNoChildKeepTheProgramFromEnding) {
  X11System system;
  std::atomic<bool> ended = false;
  std::thread background([&] {
    outputOf(system, "sleep 1000 & sleep 1000");
    ended = true;
  });
  system.interruptRuns();
  EXPECT_TRUE(waitFor([&] { return ended.load(); }));
  background.join();
}

TEST(X11System, PutsTextOnTheClipboard) {
  X11Session session({.windowManager = std::nullopt});
  const QtApplication qt;
  X11System system;
  system.setPasteboardString("Büro\n");
  system.setPasteboardString("Werkstatt\n");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Werkstatt\n"));
}

TEST(X11System, StandsInForALogToolThatIsMissing) {
  const X11System system;
  const auto query = system.localized({.executable = "/nonexistent/log", .arguments = {"show"}, .command = "log show"});
  EXPECT_EQ(std::filesystem::canonical(query.executable), std::filesystem::canonical("/proc/self/exe"));
  EXPECT_THAT(query.arguments, ::testing::ElementsAre("--recent-log"));
  EXPECT_EQ(query.command, "'" + std::filesystem::canonical("/proc/self/exe").string() + "' --recent-log");
}

TEST(X11System, NamesItselfShortlyWhereAShellFindsIt) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(std::filesystem::canonical("/proc/self/exe"), folder.path() / "roomlattice");
  Environment environment;
  environment.set("PATH", folder.path().string());
  EXPECT_EQ(X11System().localized({.executable = "/nonexistent/log"}).command, "roomlattice --recent-log");
}

TEST(X11System, LeavesALogToolThatIsThereAlone) {
  const auto query = X11System().localized({.executable = "/bin/sh", .arguments = {"-c"}, .command = "sh"});
  EXPECT_EQ(query.executable, "/bin/sh");
  EXPECT_THAT(query.arguments, ::testing::ElementsAre("-c"));
  EXPECT_EQ(query.command, "sh");
}

}  // namespace
}  // namespace roomlattice::tests
