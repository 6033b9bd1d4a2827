#include "platform/linux/storage/FileDescriptor.h"
#include "tests/linux/session/TextFile.h"
#include "tests/x11/session/Program.h"
#include "tests/x11/session/X11Session.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::FileDescriptor;

class ProgramLogTest : public ::testing::Test {
 protected:
  bool fileHas(const std::string& text) const {
    const std::filesystem::path file = session_.home() / ".local" / "state" / "roomlattice" / "log";
    return waitFor([&] { return std::filesystem::exists(file) && textOf(file).find(text) != std::string::npos; });
  }

  X11Session session_;
};

TEST_F(ProgramLogTest, WritesIntoNothingElseWhereStandardStreamsAreClosed) {
  Program program = Program::throughShell("exec \"$0\" 0<&- 1>&- 2>&-");
  EXPECT_TRUE(fileHas("tour end"));
  EXPECT_TRUE(program.isUp());
  for (const char* stream : {"0", "1", "2"}) {
    const std::filesystem::path link = "/proc/" + std::to_string(program.process().id()) + "/fd/" + stream;
    EXPECT_EQ(std::filesystem::read_symlink(link), "/dev/null") << stream;
  }
}

TEST_F(ProgramLogTest, DoesNotWaitForWhoeverReadsStandardError) {
  const std::string name = (session_.home() / "pipe").string();
  ASSERT_EQ(mkfifo(name.c_str(), S_IRUSR | S_IWUSR), 0);
  const FileDescriptor reader(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const FileDescriptor writer(open(name.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  const std::string filling(65536, 'x');
  while (write(writer.get(), filling.data(), filling.size()) > 0) {
  }
  Program program = Program::throughShell("exec \"$0\" 2>'" + name + "'");
  EXPECT_TRUE(fileHas("tour end"));
}

TEST_F(ProgramLogTest, DoesNotWaitForAStoppedTerminal) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_EQ(grantpt(terminal) + unlockpt(terminal), 0);
  const std::string name = ptsname(terminal);
  const int line = open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_EQ(tcflow(line, TCOOFF), 0);
  Program program = Program::throughShell("exec \"$0\" 2>" + name);
  EXPECT_TRUE(fileHas("tour end"));
  close(line);
  close(terminal);
}

}  // namespace
}  // namespace roomlattice::tests
