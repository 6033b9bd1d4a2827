#include "spaces/NameExchange.h"

#include "spaces/NumberedName.h"
#include "support/Text.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
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
  if (const Names* names = names_.known()) {
    follow(*names);
  } else {
    forget();
  }
  comparing_ = false;
}

void NameExchange::follow(const Names& names) {
  const std::vector<Meeting> meetings = changesSinceLast(names);
  comparedAt_ = spaces_.table().now();
  const Extent extent = takeStock(meetings);
  for (const Meeting& meeting : meetings) {
    if (meeting.entry != nullptr) {
      compare(meeting.desktop, *meeting.entry, *meeting.there, extent);
    } else {
      meet(meeting.desktop, *meeting.there);
    }
  }
  lend(meetings);
}

void NameExchange::forget() {
  entries_.clear();
  comparedAt_ = 0;
  phase_ = Phase::AtRest;
  phaseEnd_.cancel();
  spaces_.borrowNames({});
}

/// The desktops, in their order, of which anything may have changed on either side. Most have not.
std::vector<NameExchange::Meeting> NameExchange::changesSinceLast(const Names& names) {
  const SpaceTable& table = spaces_.table();
  std::set<std::size_t> places;
  for (std::size_t place = 0; place < table.rows().size(); ++place) {
    if (table.rows()[place].changedAt > comparedAt_) {
      places.insert(place);
    }
  }
  addChangedThere(places, names);
  std::vector<Meeting> meetings;
  for (const std::size_t place : places) {
    const SpaceInfo& desktop = table.spaces()[place];
    if (desktop.isRegular()) {
      const auto there = names.find(desktop.uuid);
      const auto entry = entries_.find(desktop.uuid);
      meetings.push_back({.desktop = desktop,
                          .there = there == names.end() ? &noName : &there->second,
                          .entry = entry == entries_.end() ? nullptr : &entry->second});
    }
  }
  return meetings;
}

void NameExchange::addChangedThere(std::set<std::size_t>& places, const Names& names) const {
  auto there = names.begin();
  for (const auto& [uuid, entry] : entries_) {
    // Both are in the same order, so that nothing is looked for.
    while (there != names.end() && there->first < uuid) {
      ++there;
    }
    const bool hasName = there != names.end() && there->first == uuid;
    if (entry.there != (hasName ? there->second : noName)) {
      if (const SpaceInfo* desktop = spaces_.table().firstRegular(uuid)) {
        places.insert(static_cast<std::size_t>(desktop - spaces_.spaces().data()));
      }
    }
  }
}

NameExchange::Extent NameExchange::takeStock(const std::vector<Meeting>& meetings) {
  const std::size_t before = entries_.size();
  std::size_t added = 0;
  std::size_t changed = 0;
  for (const Meeting& meeting : meetings) {
    added += static_cast<std::size_t>(meeting.entry == nullptr);
    changed += static_cast<std::size_t>(meeting.entry != nullptr && meeting.entry->there != *meeting.there);
  }
  forgetThoseThatWent();
  if (added > 0 || entries_.size() < before) {
    begin(before == 0 ? Phase::Starting : Phase::Settling);
  }
  return changed > 1 ? Extent::Several : Extent::One;
}

void NameExchange::forgetThoseThatWent() {
  for (auto known = entries_.begin(); known != entries_.end();) {
    if (isListed(known->first, known->second)) {
      ++known;
    } else {
      lending_[known->first] = std::nullopt;
      known = entries_.erase(known);
    }
  }
}

bool NameExchange::isListed(const std::string& uuid, Entry& entry) const {
  const std::vector<SpaceInfo>& spaces = spaces_.spaces();
  // Most stand where they stood.
  if (entry.place < spaces.size() && spaces[entry.place].isRegular() && spaces[entry.place].uuid == uuid) {
    return true;
  }
  const SpaceInfo* desktop = spaces_.table().firstRegular(uuid);
  entry.place = desktop == nullptr ? 0 : static_cast<std::size_t>(desktop - spaces.data());
  return desktop != nullptr;
}

void NameExchange::meet(const SpaceInfo& desktop, const std::string& there) {
  const std::string* stored = spaces_.storedName(desktop);
  entries_[desktop.uuid] = {
      .here = stored == nullptr ? realName(there) : *stored, .there = there, .before = {}, .place = 0};
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
  for (const Meeting& meeting : meetings) {
    const Entry& entry = meeting.entry == nullptr ? entries_[meeting.desktop.uuid] : *meeting.entry;
    const bool isLent = spaces_.storedName(meeting.desktop) == nullptr;
    lending_[meeting.desktop.uuid] = isLent ? entry.here : std::nullopt;
  }
  spaces_.changeBorrowedNames(std::exchange(lending_, {}));
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
