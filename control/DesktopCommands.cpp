#include "control/DesktopCommands.h"

#include "control/DesktopLookup.h"
#include "control/DesktopStates.h"
#include "support/Difference.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>
#include <variant>

namespace roomlattice {
namespace {

using platform::CommandError;
using platform::CommandErrorKind;
using platform::CommandResult;
using platform::DesktopChange;
using platform::DesktopState;

// Longer ones are no names, and would have to be drawn.
constexpr std::size_t longestName = 500;

constexpr CommandResult done = std::nullopt;

bool isControlCharacter(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7f;
}

CommandError nothingInFront() {
  return {CommandErrorKind::NotPossible, "no desktop is in front"};
}

}  // namespace

DesktopCommands::DesktopCommands(platform::Platform& platform, SpaceManager& manager,
                                 const PreferencesStore& preferences, MenuBarController& menuBar,
                                 SpaceSignWindowController& signs)
    : platform_(platform),
      manager_(manager),
      preferences_(preferences),
      menuBar_(menuBar),
      signs_(signs),
      switcher_(platform, manager),
      told_(desktops()),
      toldAt_(manager.table().now()) {
  platform::NotificationCenter& center = platform.notifications().defaultCenter();
  observers_ = {center.observe(SpaceManager::didChange, [this] { listChanged(); }),
                center.observe(SpaceManager::activeChanged, [this] { activeChanged(); }),
                center.observe(PreferencesStore::didChange, [this] { update(desktops()); })};
}

std::vector<DesktopState> DesktopCommands::desktops() const {
  return desktopStates(manager_, preferences_);
}

std::optional<DesktopState> DesktopCommands::currentDesktop() const {
  return activeDesktopState(manager_, preferences_);
}

CommandResult DesktopCommands::switchTo(const std::string& desktop) {
  const auto found = findDesktop(desktop, desktops());
  if (const auto* error = std::get_if<CommandError>(&found)) {
    return *error;
  }
  if (!positionOf(switcher_.destination(), regularSpaces(manager_.spaces()))) {
    return noWayFrom(switcher_.destination());
  }
  switcher_.switchTo(manager_.spaces().at(std::get<std::size_t>(found)).spaceID);
  return done;
}

CommandResult DesktopCommands::switchToNext() {
  return step(platform::Direction::Right);
}

CommandResult DesktopCommands::switchToPrevious() {
  return step(platform::Direction::Left);
}

CommandResult DesktopCommands::step(platform::Direction direction) {
  const std::vector<SpaceInfo> regular = regularSpaces(manager_.spaces());
  const std::optional<std::size_t> from = positionOf(switcher_.destination(), regular);
  if (!from) {
    return noWayFrom(switcher_.destination());
  }
  const bool isRight = direction == platform::Direction::Right;
  if (isRight ? *from + 1 == regular.size() : *from == 0) {
    return CommandError{CommandErrorKind::NoFurtherDesktop, isRight ? "there is no desktop after the last one"
                                                                    : "there is no desktop before the first one"};
  }
  switcher_.switchTo(regular[isRight ? *from + 1 : *from - 1].spaceID);
  return done;
}

CommandError DesktopCommands::noWayFrom(platform::SpaceID space) const {
  return manager_.firstSpace(space) == nullptr
             ? nothingInFront()
             : CommandError{CommandErrorKind::NotPossible, "there is no way from a full-screen space to a desktop"};
}

CommandResult DesktopCommands::rename(const std::string& desktop, const std::string& name) {
  const auto found = findDesktop(desktop, desktops());
  if (const auto* error = std::get_if<CommandError>(&found)) {
    return *error;
  }
  return setName(manager_.spaces().at(std::get<std::size_t>(found)), name);
}

CommandResult DesktopCommands::renameCurrent(const std::string& name) {
  // Nobody means a desktop that the tour is passing.
  const SpaceInfo* home = manager_.homeSpace();
  return home == nullptr ? nothingInFront() : setName(*home, name);
}

CommandResult DesktopCommands::setName(const SpaceInfo& space, const std::string& name) {
  if (name.size() > longestName) {
    return CommandError{CommandErrorKind::InvalidName, "a name has at most " + std::to_string(longestName) + " bytes"};
  }
  if (std::ranges::any_of(name, isControlCharacter)) {
    return CommandError{CommandErrorKind::InvalidName, "a name has no control characters"};
  }
  manager_.setName(name, space);
  return done;
}

CommandResult DesktopCommands::showLabels() {
  if (!preferences_.showSignAfterSelection()) {
    return CommandError{CommandErrorKind::NotPossible, "showing the labels is switched off in the preferences"};
  }
  signs_.showAll();
  return done;
}

CommandResult DesktopCommands::hideLabels() {
  signs_.hideAll();
  return done;
}

CommandResult DesktopCommands::openMenu() {
  return later([this] { menuBar_.openMenu(); });
}

CommandResult DesktopCommands::openPreferences() {
  return later([this] { menuBar_.showPreferences(); });
}

CommandResult DesktopCommands::startTour() {
  const std::vector<SpaceInfo> regular = regularSpaces(manager_.spaces());
  if (!positionOf(manager_.activeSpaceID(), regular)) {
    return noWayFrom(manager_.activeSpaceID());
  }
  if (regular.size() < 2) {
    return CommandError{CommandErrorKind::NotPossible, "there is only one desktop"};
  }
  manager_.performAutoTour();
  return done;
}

CommandResult DesktopCommands::quit() {
  return later([this] { platform_.application().terminate(); });
}

CommandResult DesktopCommands::later(std::function<void()> act) {
  platform_.dispatcher().async(lifetime_.guard(std::move(act)));
  return done;
}

platform::Registration DesktopCommands::observe(std::function<void(const std::vector<DesktopChange>&)> handler) {
  return listeners_.add(std::move(handler));
}

void DesktopCommands::activeChanged() {
  const std::vector<SpaceInfo>& spaces = manager_.spaces();
  if (!std::ranges::equal(told_, spaces, {}, &DesktopState::uuid, &SpaceInfo::uuid)) {
    // A switch from within the news of another list, which is still to come here and tells of both.
    return;
  }
  // Looking at everything anew would cost each switch more, the more desktops there are.
  std::vector<DesktopChange> changes;
  for (std::size_t index = 0; index < told_.size(); ++index) {
    const bool isActive = spaces[index].spaceID == manager_.activeSpaceID();
    if (!std::exchange(told_[index].isActive, isActive) && isActive) {
      changes.push_back({platform::DesktopChangeKind::Switched, told_[index]});
    }
  }
  tell(changes);
}

void DesktopCommands::listChanged() {
  const std::vector<SpaceInfo>& spaces = manager_.spaces();
  const auto isAsTold = [&](std::size_t before, std::size_t after) {
    const bool isActive = spaces[after].spaceID == manager_.activeSpaceID();
    return manager_.table().rows()[after].changedAt <= toldAt_ && told_[before].isActive == isActive &&
           told_[before].uuid == spaces[after].uuid;
  };
  const Difference difference = differenceOf(told_.size(), spaces.size(), isAsTold);
  std::vector<DesktopState> now =
      desktopStates(std::span(spaces).subspan(difference.first, difference.after), manager_, preferences_);
  const std::vector<DesktopChange> changes =
      changesBetween(std::span(told_).subspan(difference.first, difference.before), now);
  const auto begin = told_.begin() + static_cast<std::ptrdiff_t>(difference.first);
  const auto end = begin + static_cast<std::ptrdiff_t>(difference.before);
  told_.insert(told_.erase(begin, end), std::move_iterator(now.begin()), std::move_iterator(now.end()));
  toldAt_ = manager_.table().now();
  tell(changes);
}

void DesktopCommands::update(std::vector<DesktopState> now) {
  const std::vector<DesktopChange> changes = changesBetween(told_, now);
  told_ = std::move(now);
  toldAt_ = manager_.table().now();
  tell(changes);
}

void DesktopCommands::tell(const std::vector<DesktopChange>& changes) {
  if (!changes.empty()) {
    listeners_.notify(changes);
  }
}

}  // namespace roomlattice
