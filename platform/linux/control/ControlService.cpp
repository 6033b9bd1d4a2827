#include "platform/linux/control/ControlService.h"

#include "platform/linux/control/ColorText.h"
#include "platform/linux/control/ControlNames.h"

#include <map>
#include <optional>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using Dictionary = std::map<std::string, BusVariant>;

Dictionary dictionaryOf(const DesktopState& desktop) {
  Dictionary dictionary{{"name", BusVariant(desktop.name)},       {"color", BusVariant(colorText(desktop.color))},
                        {"active", BusVariant(desktop.isActive)}, {"fullscreen", BusVariant(!desktop.number)},
                        {"uuid", BusVariant(desktop.uuid)},       {"display", BusVariant(desktop.display)}};
  if (desktop.number) {
    dictionary.emplace("number", BusVariant(static_cast<std::uint32_t>(*desktop.number)));
  }
  return dictionary;
}

std::string nameOf(DesktopChangeKind kind) {
  switch (kind) {
    case DesktopChangeKind::Switched:
      return "switched";
    case DesktopChangeKind::Added:
      return "added";
    case DesktopChangeKind::Removed:
      return "removed";
    case DesktopChangeKind::Moved:
      return "moved";
    case DesktopChangeKind::Renamed:
      return "renamed";
    case DesktopChangeKind::Recolored:
      break;
  }
  return "recolored";
}

const char* nameOf(CommandErrorKind kind) {
  switch (kind) {
    case CommandErrorKind::NoSuchDesktop:
      return "NoSuchDesktop";
    case CommandErrorKind::AmbiguousDesktop:
      return "AmbiguousDesktop";
    case CommandErrorKind::FullScreenDesktop:
      return "FullScreenDesktop";
    case CommandErrorKind::NoFurtherDesktop:
      return "NoFurtherDesktop";
    case CommandErrorKind::InvalidName:
      return "InvalidName";
    case CommandErrorKind::NotPossible:
      break;
  }
  return "NotPossible";
}

std::optional<BusError> answerOf(const CommandResult& result) {
  return result ? std::optional(BusError{std::string(controlErrorPrefix) + nameOf(result->kind), result->message})
                : std::nullopt;
}

std::string text(const BusMessage& call, std::size_t index) {
  return call.argument<std::string>(index).value_or("");
}

BusMethod plainMethod(std::string name, Commands& commands, CommandResult (Commands::*command)()) {
  return {.name = std::move(name),
          .argumentTypes = "",
          .resultTypes = "",
          .run = [&commands, command](const BusMessage&, BusWriter&) { return answerOf((commands.*command)()); }};
}

std::vector<BusMethod> methods(Commands& commands) {
  return {
      {.name = "SwitchTo",
       .argumentTypes = "s",
       .resultTypes = "",
       .run = [&commands](const BusMessage& call, BusWriter&) { return answerOf(commands.switchTo(text(call, 0))); },
       .names = {"desktop"}},
      plainMethod("SwitchToNext", commands, &Commands::switchToNext),
      plainMethod("SwitchToPrevious", commands, &Commands::switchToPrevious),
      {.name = "Rename",
       .argumentTypes = "ss",
       .resultTypes = "",
       .run = [&commands](const BusMessage& call,
                          BusWriter&) { return answerOf(commands.rename(text(call, 0), text(call, 1))); },
       .names = {"desktop", "name"}},
      {.name = "RenameCurrent",
       .argumentTypes = "s",
       .resultTypes = "",
       .run = [&commands](const BusMessage& call,
                          BusWriter&) { return answerOf(commands.renameCurrent(text(call, 0))); },
       .names = {"name"}},
      plainMethod("ShowLabels", commands, &Commands::showLabels),
      plainMethod("HideLabels", commands, &Commands::hideLabels),
      plainMethod("OpenMenu", commands, &Commands::openMenu),
      plainMethod("OpenPreferences", commands, &Commands::openPreferences),
      plainMethod("StartTour", commands, &Commands::startTour),
      plainMethod("Quit", commands, &Commands::quit),
  };
}

std::vector<BusProperty> properties(Commands& commands) {
  const auto desktops = [&commands] {
    std::vector<Dictionary> all;
    for (const DesktopState& desktop : commands.desktops()) {
      all.push_back(dictionaryOf(desktop));
    }
    return all;
  };
  const auto current = [&commands] {
    const auto desktop = commands.currentDesktop();
    return desktop ? dictionaryOf(*desktop) : Dictionary();
  };
  std::vector<BusProperty> all{busProperty("Desktops", desktops), busProperty("CurrentDesktop", current),
                               busProperty("Version", [] { return std::string(ROOMLATTICE_VERSION); })};
  // The whole list with every switch would be much for those who do not want it.
  all[0].changes = BusProperty::Changes::ToldWithoutValue;
  all[2].changes = BusProperty::Changes::Never;
  return all;
}

}  // namespace

ControlService::ControlService(MessageBus& sessionBus, const std::string& nameOfDisplay, Commands& commands,
                               const std::function<void(const std::string&)>& log)
    : object_(sessionBus, controlPath,
              {.name = controlInterface,
               .methods = methods(commands),
               .properties = properties(commands),
               .signalTypes = {{.name = "Changed", .argumentTypes = "sa{sv}", .names = {"change", "desktop"}}}}),
      changes_(commands.observe([this](const std::vector<DesktopChange>& changes) { tell(changes); })) {
  const auto claim = [&](const std::string& name) {
    names_.emplace_back(
        sessionBus, name,
        [log, name](BusName::Ownership ownership) {
          if (ownership == BusName::Ownership::Refused) {
            log("[Roomlattice] another program is " + name + " on the session bus");
          }
        },
        BusName::WhenTaken::Wait);
  };
  // First the common one: whoever finds the program by the name of its display may use the other.
  claim(controlName);
  if (!nameOfDisplay.empty()) {
    claim(nameOfDisplay);
  }
}

void ControlService::tell(const std::vector<DesktopChange>& changes) {
  for (const DesktopChange& change : changes) {
    object_.emit("Changed", [&change](BusWriter& writer) {
      writer.write(nameOf(change.kind));
      writer.write(dictionaryOf(change.desktop));
    });
  }
  object_.emitPropertiesChanged({"CurrentDesktop", "Desktops"});
}

}  // namespace roomlattice::platform::linux
