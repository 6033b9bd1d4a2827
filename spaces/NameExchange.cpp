#include "spaces/NameExchange.h"

#include "spaces/NumberedName.h"
#include "support/Text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace roomlattice {
namespace {

using namespace std::chrono_literals;

// Environments answer within milliseconds, and have set their own names soon after they are there.
constexpr platform::Duration answerTime = 1s;

std::string textOf(const platform::DesktopNames::Names& names, const SpaceInfo& desktop) {
  const auto found = names.find(desktop.uuid);
  return found == names.end() ? std::string() : found->second;
}

std::optional<std::string> realName(const std::string& there) {
  return isNumberedName(there) ? std::nullopt : std::optional(trimWhitespace(there));
}

std::optional<std::string> shownName(const SpaceManager& spaces, const SpaceInfo& desktop) {
  return spaces.defaultNumber(desktop) ? std::nullopt : std::optional(spaces.displayName(desktop));
}

}  // namespace

NameExchange::NameExchange(platform::Platform& platform, SpaceManager& spaces)
    : names_(platform.desktopNames()), dispatcher_(platform.dispatcher()), spaces_(spaces) {
  changesHere_ = platform.notifications().defaultCenter().observe(SpaceManager::didChange, [this] { compare(); });
  changesThere_ = names_.observe([this] { compare(); });
  compare();
}

void NameExchange::compare() {
  if (comparing_) {
    return;
  }
  comparing_ = true;
  if (const std::optional<Names> names = names_.read()) {
    follow(*names);
  } else {
    forget();
  }
  comparing_ = false;
}

void NameExchange::follow(const Names& names) {
  const std::vector<SpaceInfo> desktops = regularSpaces(spaces_.spaces());
  const Extent extent = takeStock(desktops, names);
  for (const SpaceInfo& desktop : desktops) {
    const std::string there = textOf(names, desktop);
    if (entries_.contains(desktop.uuid)) {
      compare(desktop, there, extent);
    } else {
      meet(desktop, there);
    }
  }
  lend();
}

void NameExchange::forget() {
  entries_.clear();
  phase_ = Phase::AtRest;
  phaseEnd_.cancel();
  spaces_.borrowNames({});
}

NameExchange::Extent NameExchange::takeStock(const std::vector<SpaceInfo>& desktops, const Names& names) {
  const bool isStart = entries_.empty();
  std::unordered_set<std::string_view> listed;
  for (const SpaceInfo& desktop : desktops) {
    listed.insert(desktop.uuid);
  }
  const std::size_t removed =
      std::erase_if(entries_, [&listed](const auto& entry) { return !listed.contains(entry.first); });
  std::size_t added = 0;
  std::size_t changed = 0;
  for (const SpaceInfo& desktop : desktops) {
    const auto known = entries_.find(desktop.uuid);
    if (known == entries_.end()) {
      ++added;
    } else if (known->second.there != textOf(names, desktop)) {
      ++changed;
    }
  }
  if (added + removed > 0) {
    begin(isStart ? Phase::Starting : Phase::Settling);
  }
  return changed + added + removed > 1 ? Extent::Several : Extent::One;
}

void NameExchange::meet(const SpaceInfo& desktop, const std::string& there) {
  const std::string* stored = spaces_.storedName(desktop);
  entries_[desktop.uuid] = {.here = stored == nullptr ? realName(there) : *stored, .there = there, .before = {}};
  if (stored != nullptr && phase_ != Phase::Starting) {
    ask(desktop);
  }
}

void NameExchange::compare(const SpaceInfo& desktop, const std::string& there, Extent extent) {
  Entry& entry = entries_[desktop.uuid];
  const bool changedThere = std::exchange(entry.there, there) != there;
  const std::optional<std::string> shown = shownName(spaces_, desktop);
  if (shown != entry.here) {
    entry.here = shown;
    ask(desktop);
  } else if (changedThere && realName(there) != entry.here && !isAnswer(desktop, there, extent)) {
    take(desktop, there);
  }
}

bool NameExchange::isAnswer(const SpaceInfo& desktop, const std::string& there, Extent extent) const {
  const bool isKept = spaces_.storedName(desktop) != nullptr;
  const std::optional<std::string>& before = entries_.at(desktop.uuid).before;
  if (phase_ == Phase::Starting && !before) {
    return isKept;
  }
  if (phase_ == Phase::AtRest && extent == Extent::One) {
    return false;
  }
  return there == before || (isKept && (isNumberedName(there) || wishFor(desktop).starts_with(there)));
}

void NameExchange::take(const SpaceInfo& desktop, const std::string& there) {
  const std::optional<std::string> name = realName(there);
  entries_[desktop.uuid].here = name;
  if (spaces_.storedName(desktop) != nullptr) {
    spaces_.setName(name.value_or(""), desktop);
  }
}

void NameExchange::ask(const SpaceInfo& desktop) {
  Entry& entry = entries_[desktop.uuid];
  const std::string wish = wishFor(desktop);
  if (wish != entry.there && (entry.here || !isNumberedName(entry.there))) {
    entry.before = entry.there;
    begin(Phase::Settling);
    names_.set(desktop.uuid, wish);
  }
}

std::string NameExchange::wishFor(const SpaceInfo& desktop) const {
  const Entry& entry = entries_.at(desktop.uuid);
  if (entry.here) {
    return *entry.here;
  }
  const auto example = std::ranges::find_if(entries_, [](const auto& other) {
    return isNumberedName(other.second.there) && !trimWhitespace(other.second.there).empty();
  });
  return numberedNameLike(example == entries_.end() ? "" : example->second.there,
                          spaces_.defaultNumber(desktop).value_or(1));
}

void NameExchange::lend() {
  Names lent;
  for (const SpaceInfo& desktop : regularSpaces(spaces_.spaces())) {
    const Entry& entry = entries_[desktop.uuid];
    if (entry.here && spaces_.storedName(desktop) == nullptr) {
      lent[desktop.uuid] = *entry.here;
    }
  }
  spaces_.borrowNames(std::move(lent));
}

void NameExchange::begin(Phase phase) {
  if (phase_ != Phase::Starting) {
    phase_ = phase;
    phaseEnd_ = dispatcher_.schedule(answerTime, [this] { endPhase(); });
  }
}

void NameExchange::endPhase() {
  if (std::exchange(phase_, Phase::AtRest) != Phase::Starting) {
    return;
  }
  for (const SpaceInfo& desktop : regularSpaces(spaces_.spaces())) {
    if (spaces_.storedName(desktop) != nullptr && !entries_[desktop.uuid].before) {
      ask(desktop);
    }
  }
}

}  // namespace roomlattice
