#include "platform/x11/connection/SecondStart.h"

#include "platform/linux/client/RunningProgram.h"

#include <chrono>
#include <cstdlib>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;
using linux::RunningProgram;

// The other one may be at its own start.
constexpr std::chrono::milliseconds answerTime = 5s;

}  // namespace

ExitStatus passOnStart(linux::Start start, const std::string& display, const linux::TerminationSignals& signals) {
  if (start == linux::Start::AtLogin) {
    return {EXIT_SUCCESS};
  }
  const auto deadline = std::chrono::steady_clock::now() + answerTime;
  RunningProgram other(display, answerTime);
  while (other.isReachable() && std::chrono::steady_clock::now() < deadline) {
    const auto answer = other.call("OpenMenu");
    if (std::holds_alternative<RunningProgram::Done>(answer)) {
      return {EXIT_SUCCESS};
    }
    if (signals.waitFor(50ms)) {
      return {EXIT_SUCCESS};
    }
  }
  linux::printError("already running on the X11 display '" + display + "'");
  return {EXIT_FAILURE};
}

}  // namespace roomlattice::platform::x11
