#include "platform/linux/client/RunningProgram.h"

#include "platform/linux/control/ControlNames.h"
#include "tests/linux/session/BusFixture.h"

#include <csignal>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::RunningProgram;

class RunningProgramTest : public BusTest {};

TEST_F(RunningProgramTest, IsNotWaitedForWhereTheBusIsMute) {
  daemon_.signal(SIGSTOP);
  RunningProgram program("", 30s, 20ms);
  EXPECT_TRUE(std::holds_alternative<RunningProgram::NotRunning>(program.call("OpenMenu")));
  EXPECT_TRUE(std::holds_alternative<RunningProgram::NotRunning>(program.desktops()));
  EXPECT_TRUE(std::holds_alternative<RunningProgram::NotRunning>(program.watch({}, [] { return false; })));
}

TEST_F(RunningProgramTest, IsNotWaitedForBeyondTheLimit) {
  const FakeService stopped(daemon_.address(), platform::linux::controlName);
  RunningProgram program("", 20ms);
  EXPECT_TRUE(std::holds_alternative<RunningProgram::NotRunning>(program.call("OpenMenu")));
  EXPECT_TRUE(std::holds_alternative<RunningProgram::NotRunning>(program.desktops()));
}

}  // namespace
}  // namespace roomlattice::tests
