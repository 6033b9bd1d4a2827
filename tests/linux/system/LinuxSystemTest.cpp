#include "platform/linux/system/LinuxSystem.h"

#include "tests/linux/session/Environment.h"
#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

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
using platform::linux::LinuxSystem;
using platform::linux::orOwnLog;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string outputOf(LinuxSystem& system, const std::string& script) {
  const auto result = system.run("/bin/sh", {"-c", script});
  const auto* output = std::get_if<ProcessOutput>(&result);
  return output == nullptr ? "(not launched)" : output->bytes;
}

TEST(LinuxSystemTest, GivesBothOutputsOfAChildInTheOrderWritten) {
  LinuxSystem system;
  EXPECT_EQ(outputOf(system, "echo one; echo two >&2; echo three"), "one\ntwo\nthree\n");
}

TEST(LinuxSystemTest, HandsArgumentsOverAsTheyAre) {
  LinuxSystem system;
  const auto result = system.run("/usr/bin/printf", {"[%s]", "a b", "\"c\"", "", "*"});
  EXPECT_EQ(std::get<ProcessOutput>(result).bytes, "[a b][\"c\"][][*]");
}

TEST(LinuxSystemTest, GivesEveryByteOfALargeOutput) {
  LinuxSystem system;
  EXPECT_EQ(outputOf(system, "head -c 3000000 /dev/zero").size(), 3000000U);
}

TEST(LinuxSystemTest, HandsItsEnvironmentAndItsFolderDown) {
  Environment environment;
  environment.set("ROOMLATTICE_TEST", "inherited");
  LinuxSystem system;
  EXPECT_EQ(outputOf(system, "echo $ROOMLATTICE_TEST; pwd -P"),
            "inherited\n" + std::filesystem::current_path().string() + "\n");
}

TEST(LinuxSystemTest, DoesNotLookAtTheExitStatus) {
  LinuxSystem system;
  EXPECT_EQ(outputOf(system, "echo out; exit 3"), "out\n");
  EXPECT_EQ(outputOf(system, "echo out; kill -9 $$"), "out\n");
}

TEST(LinuxSystemTest, WaitsForAllWhoHoldTheOutput) {
  LinuxSystem system;
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

TEST(LinuxSystemTest, GivesAChildNoInputAndNoFilesOfItsOwn) {
  LinuxSystem system;
  const std::string script =
      "cat; for file in $(seq 3 1023); do if [ -e /proc/$$/fd/$file ]; then echo $file; fi; done";
  EXPECT_EQ(outputOf(system, script), inheritedFiles());
}

TEST(LinuxSystemTest, ResetsSignalsForAChild) {
  const auto former = std::signal(SIGPIPE, SIG_IGN);
  LinuxSystem system;
  const std::string line = outputOf(system, "grep SigIgn /proc/self/status");
  std::signal(SIGPIPE, former);
  const std::uint64_t ignored = std::stoull(line.substr(line.find('\t') + 1), nullptr, 16);
  EXPECT_EQ(ignored >> (SIGPIPE - 1U) & 1U, 0U) << line;
}

TEST(LinuxSystemTest, LeavesNoZombieAndNoOpenFile) {
  LinuxSystem system;
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

class LinuxSystemLaunchTest : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(LinuxSystemLaunchTest, AndSaysWhyInOneLine) {
  LinuxSystem system;
  const auto result = system.run(GetParam().first, {"argument"});
  const auto* error = std::get_if<LaunchError>(&result);
  ASSERT_NE(error, nullptr);
  EXPECT_THAT(error->localizedDescription, HasSubstr(GetParam().second));
  EXPECT_THAT(error->localizedDescription, ::testing::Not(HasSubstr("\n")));
}

INSTANTIATE_TEST_SUITE_P(LinuxSystem, LinuxSystemLaunchTest,
                         ::testing::Values(std::pair("/nonexistent", "No such file or directory"),
                                           std::pair("/usr/bin", "Permission denied"),
                                           std::pair("/etc/passwd", "Permission denied"),
                                           std::pair("", "No such file or directory")));

TEST(LinuxSystemTest, LetsNoChildKeepTheProgramFromEnding) {
  LinuxSystem system;
  std::atomic<bool> ended = false;
  std::thread background([&] {
    outputOf(system, "sleep 1000 & sleep 1000");
    ended = true;
  });
  system.interruptRuns();
  EXPECT_TRUE(waitFor([&] { return ended.load(); }));
  background.join();
}

TEST(LinuxSystemTest, PutsTextOnTheClipboard) {
  Environment environment;
  environment.set("QT_QPA_PLATFORM", "offscreen");
  const ToolkitApplication<QGuiApplication> qt;
  LinuxSystem system;
  system.setPasteboardString("Büro\n");
  system.setPasteboardString("Werkstatt\n");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Werkstatt\n"));
}

TEST(LinuxSystemTest, StandsInForALogToolThatIsMissing) {
  const auto query = orOwnLog({.executable = "/nonexistent/log", .arguments = {"show"}, .command = "log show"});
  EXPECT_EQ(std::filesystem::canonical(query.executable), std::filesystem::canonical("/proc/self/exe"));
  EXPECT_THAT(query.arguments, ::testing::ElementsAre("--recent-log"));
  EXPECT_EQ(query.command, "'" + std::filesystem::canonical("/proc/self/exe").string() + "' --recent-log");
}

TEST(LinuxSystemTest, NamesItselfShortlyWhereAShellFindsIt) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(std::filesystem::canonical("/proc/self/exe"), folder.path() / "roomlattice");
  Environment environment;
  environment.set("PATH", folder.path().string());
  EXPECT_EQ(orOwnLog({.executable = "/nonexistent/log"}).command, "roomlattice --recent-log");
}

TEST(LinuxSystemTest, LeavesALogToolThatIsThereAlone) {
  const auto query = orOwnLog({.executable = "/bin/sh", .arguments = {"-c"}, .command = "sh"});
  EXPECT_EQ(query.executable, "/bin/sh");
  EXPECT_THAT(query.arguments, ::testing::ElementsAre("-c"));
  EXPECT_EQ(query.command, "sh");
}

}  // namespace
}  // namespace roomlattice::tests
