#include "platform/linux/ctl/CtlRun.h"

#include "platform/linux/client/RunningProgram.h"
#include "platform/linux/ctl/BarFormat.h"
#include "platform/linux/ctl/DesktopTable.h"
#include "platform/linux/ctl/PlainText.h"
#include "support/JsonText.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Desktops = std::vector<DesktopState>;

CtlStatus complain(const std::string& reason, CtlStatus status) {
  std::fprintf(stderr, "roomlatticectl: %s\n", plainText(reason).c_str());
  return status;
}

template <class T>
CtlStatus failure(const RunningProgram::Answer<T>& answer) {
  if (const auto* refused = std::get_if<RunningProgram::Refused>(&answer)) {
    return complain(refused->reason, CtlStatus::Refused);
  }
  return complain(std::get<RunningProgram::NotRunning>(answer).reason, CtlStatus::NotRunning);
}

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// As https://no-color.org has it.
Coloring coloringOfOutput() {
  return isatty(STDOUT_FILENO) == 1 && environment("NO_COLOR").empty() ? Coloring::On : Coloring::Off;
}

std::string jsonOf(const Value& value, JsonLayout layout) {
  return toJson(value, layout).value_or("null") + "\n";
}

class Run {
 public:
  explicit Run(const CtlArguments& arguments)
      : arguments_(arguments), program_(arguments.display.value_or(environment("DISPLAY"))) {}

  CtlStatus carryOut() {
    const std::vector<std::string>& operands = arguments_.operands;
    switch (arguments_.command) {
      case CtlCommand::List:
        return list();
      case CtlCommand::Current:
        return current();
      case CtlCommand::Watch:
        return arguments_.format ? watchForBar() : watch();
      case CtlCommand::Switch:
        return call("SwitchTo");
      case CtlCommand::Next:
        return call("SwitchToNext");
      case CtlCommand::Previous:
        return call("SwitchToPrevious");
      case CtlCommand::Rename:
        return call(operands.size() == 1 ? "RenameCurrent" : "Rename");
      case CtlCommand::Labels:
        return finish(program_.call(operands[0] == "show" ? "ShowLabels" : "HideLabels"));
      case CtlCommand::Menu:
        return call("OpenMenu");
      case CtlCommand::Preferences:
        return call("OpenPreferences");
      case CtlCommand::Tour:
        return call("StartTour");
      case CtlCommand::Quit:
        break;
    }
    return call("Quit");
  }

 private:
  CtlStatus call(const char* method) { return finish(program_.call(method, arguments_.operands)); }

  static CtlStatus finish(const RunningProgram::Answer<RunningProgram::Done>& answer) {
    return std::holds_alternative<RunningProgram::Done>(answer) ? CtlStatus::Done : failure(answer);
  }

  CtlStatus list() {
    const auto answer = program_.desktops();
    const auto* desktops = std::get_if<Desktops>(&answer);
    if (desktops == nullptr) {
      return failure(answer);
    }
    if (!arguments_.json) {
      return printCtl(desktopTable(*desktops, coloringOfOutput()));
    }
    Value::Array all;
    for (const DesktopState& desktop : *desktops) {
      all.push_back(desktopValue(desktop));
    }
    return printCtl(jsonOf(Value(all), JsonLayout::Indented));
  }

  CtlStatus current() {
    const auto answer = program_.desktops();
    const auto* desktops = std::get_if<Desktops>(&answer);
    if (desktops == nullptr) {
      return failure(answer);
    }
    if (arguments_.format) {
      return printCtl(barFormatLine(*arguments_.format, *desktops) + "\n");
    }
    const auto active = std::ranges::find(*desktops, true, &DesktopState::isActive);
    if (active == desktops->end()) {
      return complain("no desktop is in front", CtlStatus::Refused);
    }
    return printCtl(arguments_.json ? jsonOf(desktopValue(*active), JsonLayout::Indented)
                                    : desktopTable({*active}, coloringOfOutput()));
  }

  CtlStatus printChange(const RunningProgram::Change& change) const {
    if (arguments_.json) {
      return printCtl(jsonOf(Value::Dictionary{{"change", change.kind}, {"desktop", desktopValue(change.desktop)}},
                             JsonLayout::Compact));
    }
    const std::string number = change.desktop.number ? std::to_string(*change.desktop.number) : "-";
    return printCtl(plainText(change.kind) + " " + number + " " + plainText(change.desktop.name) + "\n");
  }

  CtlStatus watch() {
    bool isRunning = true;
    // It asks only when it hears already, so that no change falls between the two.
    bool isAsked = false;
    RunningProgram::Answer<Desktops> answer;
    CtlStatus printed = CtlStatus::Done;
    const auto end =
        program_.watch({.changed = [&](const RunningProgram::Change& change) { printed = printChange(change); },
                        .ownerChanged = [&](bool hasOwner) { isRunning = hasOwner; }},
                       [&] {
                         if (!std::exchange(isAsked, true)) {
                           answer = program_.desktops();
                           isRunning = std::holds_alternative<Desktops>(answer);
                         }
                         return !isRunning || printed != CtlStatus::Done;
                       });
    if (!std::holds_alternative<Desktops>(answer)) {
      return failure(answer);
    }
    if (!std::holds_alternative<RunningProgram::Done>(end)) {
      return failure(end);
    }
    return isRunning ? printed : complain("Roomlattice has ended", CtlStatus::NotRunning);
  }

  CtlStatus watchForBar() {
    CtlStatus printed = printCtl(barFormatHeader(*arguments_.format));
    std::optional<std::string> shown;
    const auto end = program_.watch({}, [&] {
      if (printed != CtlStatus::Done) {
        return true;
      }
      const auto answer = program_.desktops();
      const auto* desktops = std::get_if<Desktops>(&answer);
      const std::string line = barFormatLine(*arguments_.format, desktops == nullptr ? Desktops() : *desktops);
      if (line != shown) {
        printed = printCtl(line + "\n");
        shown = line;
      }
      return printed != CtlStatus::Done;
    });
    return std::holds_alternative<RunningProgram::Done>(end) ? printed : failure(end);
  }

  const CtlArguments& arguments_;
  RunningProgram program_;
};

}  // namespace

CtlStatus runCtl(const CtlArguments& arguments) {
  return Run(arguments).carryOut();
}

CtlStatus printCtl(const std::string& text) {
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  return isWritten ? CtlStatus::Done : complain("cannot write to standard output", CtlStatus::Refused);
}

}  // namespace roomlattice::platform::linux
