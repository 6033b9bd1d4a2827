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

void print(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
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
      print(desktopTable(*desktops, coloringOfOutput()));
      return CtlStatus::Done;
    }
    Value::Array all;
    for (const DesktopState& desktop : *desktops) {
      all.push_back(desktopValue(desktop));
    }
    print(jsonOf(Value(all), JsonLayout::Indented));
    return CtlStatus::Done;
  }

  CtlStatus current() {
    const auto answer = program_.desktops();
    const auto* desktops = std::get_if<Desktops>(&answer);
    if (desktops == nullptr) {
      return failure(answer);
    }
    if (arguments_.format) {
      print(barFormatLine(*arguments_.format, *desktops) + "\n");
      return CtlStatus::Done;
    }
    const auto active = std::ranges::find(*desktops, true, &DesktopState::isActive);
    if (active == desktops->end()) {
      return complain("no desktop is in front", CtlStatus::Refused);
    }
    print(arguments_.json ? jsonOf(desktopValue(*active), JsonLayout::Indented)
                          : desktopTable({*active}, coloringOfOutput()));
    return CtlStatus::Done;
  }

  void printChange(const RunningProgram::Change& change) const {
    if (arguments_.json) {
      print(jsonOf(Value::Dictionary{{"change", change.kind}, {"desktop", desktopValue(change.desktop)}},
                   JsonLayout::Compact));
      return;
    }
    const std::string number = change.desktop.number ? std::to_string(*change.desktop.number) : "-";
    print(plainText(change.kind) + " " + number + " " + plainText(change.desktop.name) + "\n");
  }

  CtlStatus watch() {
    bool isRunning = true;
    // It asks only when it hears already, so that no change falls between the two.
    bool isAsked = false;
    RunningProgram::Answer<Desktops> answer;
    const bool heard = program_.watch({.changed = [this](const RunningProgram::Change& change) { printChange(change); },
                                       .ownerChanged = [&](bool hasOwner) { isRunning = hasOwner; }},
                                      [&] {
                                        if (!std::exchange(isAsked, true)) {
                                          answer = program_.desktops();
                                          isRunning = std::holds_alternative<Desktops>(answer);
                                        }
                                        return !isRunning;
                                      });
    if (!std::holds_alternative<Desktops>(answer)) {
      return failure(answer);
    }
    return heard && isRunning ? CtlStatus::Done : complain("Roomlattice has ended", CtlStatus::NotRunning);
  }

  CtlStatus watchForBar() {
    print(barFormatHeader(*arguments_.format));
    std::optional<std::string> shown;
    const bool heard = program_.watch({}, [&] {
      const auto answer = program_.desktops();
      const auto* desktops = std::get_if<Desktops>(&answer);
      const std::string line = barFormatLine(*arguments_.format, desktops == nullptr ? Desktops() : *desktops);
      if (line != shown) {
        print(line + "\n");
        shown = line;
      }
      return false;
    });
    return heard ? CtlStatus::Done : complain("there is no session bus", CtlStatus::NotRunning);
  }

  const CtlArguments& arguments_;
  RunningProgram program_;
};

}  // namespace

CtlStatus runCtl(const CtlArguments& arguments) {
  return Run(arguments).carryOut();
}

}  // namespace roomlattice::platform::linux
