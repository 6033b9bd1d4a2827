#include "platform/linux/ctl/CtlArguments.h"

#include "platform/linux/ctl/BarFormat.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace roomlattice::platform::linux {

const char* const ctlHelp =
    "Usage: roomlatticectl [OPTION...] COMMAND\n"
    "\n"
    "Tells the Roomlattice that runs what to do, or asks it.\n"
    "\n"
    "  list                       print all desktops\n"
    "  current                    print the desktop in front\n"
    "  switch DESKTOP             go to a desktop\n"
    "  next, previous             go to the neighbour\n"
    "  rename [DESKTOP] NAME      name the desktop in front, or another; '' brings the default name back\n"
    "  labels show|hide           show the labels of the other desktops, or hide them\n"
    "  menu                       open the menu\n"
    "  preferences                open the preferences\n"
    "  tour                       visit every desktop once\n"
    "  watch                      print a line for every change, until Roomlattice ends\n"
    "  quit                       end Roomlattice\n"
    "\n"
    "A DESKTOP is a number, a name, a uuid, or a beginning of a name that no other desktop has.\n"
    "\n"
    "  --json                     list, current and watch: print JSON\n"
    "  --format=FORMAT            current and watch: print the desktop in front for a bar; watch prints a\n"
    "                             line at once and at every change, also when Roomlattice is started anew.\n"
    "                             FORMAT is polybar, i3blocks, i3bar, genmon, tint2, waybar, lxqt, or a text\n"
    "                             with {number}, {name}, {color}, {uuid}, {display} and {count}\n"
    "  --display=DISPLAY          mean the Roomlattice of another X11 display\n"
    "  --help                     print this text\n"
    "  --version                  print the version\n"
    "\n"
    "Exit status: 0, or 1 if the command was refused, 2 if it is none, 3 if no Roomlattice runs.\n";

namespace {

enum class Output { None, Json, JsonOrFormat };

struct Description {
  std::string_view name;
  CtlCommand command;
  std::size_t fewest;
  std::size_t most;
  Output output;
};

constexpr std::array<Description, 12> descriptions{{
    {"list", CtlCommand::List, 0, 0, Output::Json},
    {"current", CtlCommand::Current, 0, 0, Output::JsonOrFormat},
    {"switch", CtlCommand::Switch, 1, 1, Output::None},
    {"next", CtlCommand::Next, 0, 0, Output::None},
    {"previous", CtlCommand::Previous, 0, 0, Output::None},
    {"rename", CtlCommand::Rename, 1, 2, Output::None},
    {"labels", CtlCommand::Labels, 1, 1, Output::None},
    {"menu", CtlCommand::Menu, 0, 0, Output::None},
    {"preferences", CtlCommand::Preferences, 0, 0, Output::None},
    {"tour", CtlCommand::Tour, 0, 0, Output::None},
    {"watch", CtlCommand::Watch, 0, 0, Output::JsonOrFormat},
    {"quit", CtlCommand::Quit, 0, 0, Output::None},
}};

using Outcome = std::optional<std::variant<CtlInformation, CtlUsageError>>;

/// Sorts the arguments into options and words.
class Sorter {
 public:
  explicit Sorter(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  /// Something when there is nothing to be done, or not as it was written.
  Outcome sort() {
    for (; index_ < arguments_.size(); ++index_) {
      const std::string& argument = arguments_[index_];
      if (onlyWords_ || argument == "-" || !argument.starts_with('-')) {
        words.push_back(argument);
      } else if (argument == "--") {
        onlyWords_ = true;
      } else if (const Outcome outcome = takeOption(argument)) {
        return outcome;
      }
    }
    return std::nullopt;
  }

  std::vector<std::string> words;
  CtlArguments options;

 private:
  Outcome takeOption(const std::string& argument) {
    if (argument == "--help" || argument == "-h") {
      return CtlInformation::Help;
    }
    if (argument == "--version") {
      return CtlInformation::Version;
    }
    if (argument == "--json") {
      options.json = true;
      return std::nullopt;
    }
    if (takeValue("--format", options.format) || takeValue("--display", options.display)) {
      return std::nullopt;
    }
    return CtlUsageError{"unknown option '" + argument + "', or it lacks its value"};
  }

  /// Takes "OPTION=VALUE" or "OPTION VALUE".
  bool takeValue(const std::string& option, std::optional<std::string>& value) {
    const std::string& argument = arguments_[index_];
    if (argument.starts_with(option + "=")) {
      value = argument.substr(option.size() + 1);
      return true;
    }
    if (argument != option || index_ + 1 == arguments_.size()) {
      return false;
    }
    value = arguments_[++index_];
    return true;
  }

  const std::vector<std::string>& arguments_;
  std::size_t index_ = 0;
  bool onlyWords_ = false;
};

/// What is wrong with the options and words of a command that there is; empty if nothing.
std::string fault(const Description& description, const CtlArguments& given) {
  const std::string name(description.name);
  if (given.operands.size() < description.fewest || given.operands.size() > description.most) {
    return "'" + name + "' has " + (given.operands.size() < description.fewest ? "too few" : "too many") + " arguments";
  }
  if (given.json && (description.output == Output::None || given.format)) {
    return given.format ? "--json and --format exclude each other" : "'" + name + "' has no --json";
  }
  if (given.format && description.output != Output::JsonOrFormat) {
    return "'" + name + "' has no --format";
  }
  if (given.format && !isBarFormat(*given.format)) {
    return "unknown format '" + *given.format + "'";
  }
  if (description.command == CtlCommand::Labels && given.operands[0] != "show" && given.operands[0] != "hide") {
    return "labels are to 'show' or 'hide', not to '" + given.operands[0] + "'";
  }
  return "";
}

}  // namespace

std::variant<CtlArguments, CtlInformation, CtlUsageError> parseCtlArguments(const std::vector<std::string>& arguments) {
  Sorter sorter(arguments);
  if (const Outcome outcome = sorter.sort()) {
    return std::visit([](const auto& one) -> std::variant<CtlArguments, CtlInformation, CtlUsageError> { return one; },
                      *outcome);
  }
  if (sorter.words.empty()) {
    return CtlUsageError{"no command"};
  }
  const auto found = std::ranges::find(descriptions, sorter.words.front(), &Description::name);
  if (found == descriptions.end()) {
    return CtlUsageError{"unknown command '" + sorter.words.front() + "'"};
  }
  CtlArguments result = std::move(sorter.options);
  result.command = found->command;
  result.operands.assign(sorter.words.begin() + 1, sorter.words.end());
  const std::string wrong = fault(*found, result);
  if (!wrong.empty()) {
    return CtlUsageError{wrong};
  }
  return result;
}

}  // namespace roomlattice::platform::linux
