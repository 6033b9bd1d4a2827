#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform::linux {

enum class CtlCommand {
  List,
  Current,
  Switch,
  Next,
  Previous,
  Rename,
  Labels,
  Menu,
  Preferences,
  Tour,
  Watch,
  Quit,
};

/// What roomlatticectl is told to do.
struct CtlArguments {
  CtlCommand command = CtlCommand::List;
  /// Those of the command, as many as it takes.
  std::vector<std::string> operands;
  bool json = false;
  std::optional<std::string> format;
  /// The display whose program is meant; that of the environment, or the only one, where there is none.
  std::optional<std::string> display;
};

enum class CtlInformation { Help, Version };

struct CtlUsageError {
  std::string reason;
};

/// Reads the arguments, without the name of the program.
std::variant<CtlArguments, CtlInformation, CtlUsageError> parseCtlArguments(const std::vector<std::string>& arguments);

extern const char* const ctlHelp;

}  // namespace roomlattice::platform::linux
