#pragma once

#include "tests/support/ProgramFixture.h"

#include <string>
#include <vector>

namespace roomlattice::tests {

/// The program after its first tour, and another program that sends it commands.
class CommandsFixture : public ProgramFixture {
 protected:
  using Kind = platform::CommandErrorKind;

  explicit CommandsFixture(int desktops = 3) : ProgramFixture(desktops) {
    startProgram();
    desktop.advance(30s);
  }

  platform::Commands& commands() { return *platform().control().commands(); }

  static std::optional<Kind> kindOf(const platform::CommandResult& result) {
    return result ? std::optional(result->kind) : std::nullopt;
  }

  std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const platform::DesktopState& state : commands().desktops()) {
      result.push_back(state.name);
    }
    return result;
  }

  bool isOnDesktop(std::size_t index) { return desktop.activeSpace() == desktop.desktopAt(index); }
};

}  // namespace roomlattice::tests
