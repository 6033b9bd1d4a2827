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

const std::string noName;

std::optional<std::string> realName(const std::string& there) {
  return isNumberedName(there) ? std::nullopt : std::optional(trimWhitespace(there));
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
  const std::vector<Meeting> meetings = meetingsOf(desktops, names);
  const Extent extent = takeStock(meetings);
  for (const Meeting& meeting : meetings) {
    if (meeting.entry != nullptr) {
      compare(*meeting.desktop, *meeting.entry, *meeting.there, extent);
    } else {
      meet(*meeting.desktop, *meeting.there);
    }
  }
  lend(meetings);
}

void NameExchange::forget() {
  entries_.clear();
  phase_ = Phase::AtRest;
  phaseEnd_.cancel();
  spaces_.borrowNames({});
}

std::vector<NameExchange::Meeting> NameExchange::meetingsOf(const std::vector<SpaceInfo>& desktops,
                                                            const Names& names) {
  std::vector<Meeting> meetings;
  meetings.reserve(desktops.size());
  for (const SpaceInfo& desktop : desktops) {
    const auto there = names.find(desktop.uuid);
    const auto entry = entries_.find(desktop.uuid);
    meetings.push_back({.desktop = &desktop,
                        .there = there == names.end() ? &noName : &there->second,
                        .entry = entry == entries_.end() ? nullptr : &entry->second});
  }
  return meetings;
}

NameExchange::Extent NameExchange::takeStock(const std::vector<Meeting>& meetings) {
  const bool isStart = entries_.empty();
  std::size_t kept = 0;
  std::size_t changed = 0;
  for (const Meeting& meeting : meetings) {
    if (meeting.entry != nullptr) {
      ++kept;
      changed += static_cast<std::size_t>(meeting.entry->there != *meeting.there);
    }
  }
  const std::size_t added = meetings.size() - kept;
  const std::size_t removed = kept == entries_.size() ? 0 : forgetAllBut(meetings);
  if (added + removed > 0) {
    begin(isStart ? Phase::Starting : Phase::Settling);
  }
  return changed + added + removed > 1 ? Extent::Several : Extent::One;
}

std::size_t NameExchange::forgetAllBut(const std::vector<Meeting>& meetings) {
  std::unordered_set<std::string_view> listed;
  for (const Meeting& meeting : meetings) {
    listed.insert(meeting.desktop->uuid);
  }
  return std::erase_if(entries_, [&listed](const auto& entry) { return !listed.contains(entry.first); });
}

void NameExchange::meet(const SpaceInfo& desktop, const std::string& there) {
  const std::string* stored = spaces_.storedName(desktop);
  entries_[desktop.uuid] = {.here = stored == nullptr ? realName(there) : *stored, .there = there, .before = {}};
  if (stored != nullptr && phase_ != Phase::Starting) {
    ask(desktop);
  }
}

void NameExchange::compare(const SpaceInfo& desktop, Entry& entry, const std::string& there, Extent extent) {
  const bool changedThere = entry.there != there;
  if (changedThere) {
    entry.there = there;
  }
  // Most are as they were, of however many, so nothing is copied to find that.
  const std::string* shown = spaces_.givenName(desktop);
  const bool changedHere = shown == nullptr ? entry.here.has_value() : entry.here != *shown;
  if (changedHere) {
    entry.here = shown == nullptr ? std::nullopt : std::optional(*shown);
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

void NameExchange::lend(const std::vector<Meeting>& meetings) {
  Names lent;
  for (const Meeting& meeting : meetings) {
    const SpaceInfo& desktop = *meeting.desktop;
    const Entry& entry = meeting.entry == nullptr ? entries_[desktop.uuid] : *meeting.entry;
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
