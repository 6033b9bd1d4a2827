#include "spaces/SpaceObserver.h"

#include "platform/ManagedSpaces.h"
#include "support/Difference.h"
#include "support/Fatal.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

namespace key = platform::managedSpacesKey;

const std::string unnamedDisplay = "Main";

const std::string* string(const Value::Dictionary& dictionary, const std::string& name) {
  const Value* value = platform::find(dictionary, name);
  return value == nullptr ? nullptr : value->asString();
}

std::optional<std::int64_t> integer(const Value::Dictionary& dictionary, const std::string& name) {
  const Value* value = platform::find(dictionary, name);
  const std::int64_t* number = value == nullptr ? nullptr : value->asInteger();
  return number == nullptr ? std::nullopt : std::optional(*number);
}

/// Nothing for a space without an identifier.
std::optional<SpaceInfo> parseSpace(const Value::Dictionary& space, const std::string& displayUUID) {
  std::optional<std::int64_t> identifier = integer(space, key::managedSpaceID);
  if (!identifier) {
    identifier = integer(space, key::otherIdentifier);
  }
  if (!identifier) {
    return std::nullopt;
  }
  if (*identifier < 0) {
    fatal("the window server gave a negative space identifier");
  }
  const std::string* uuid = string(space, key::uuid);
  return SpaceInfo{.spaceID = static_cast<platform::SpaceID>(*identifier),
                   .uuid = uuid == nullptr ? "space-" + std::to_string(*identifier) : *uuid,
                   .displayUUID = displayUUID,
                   .type = integer(space, key::type).value_or(0)};
}

}  // namespace

SpaceObserver::SpaceObserver(platform::WindowServer& windowServer, platform::NotificationCenter& workspace,
                             SpaceManager& spaces)
    : windowServer_(windowServer),
      spaces_(spaces),
      observation_(
          workspace.observe(platform::notification::activeSpaceDidChange, [this] { activeSpaceDidChange(); })) {}

void SpaceObserver::refresh() {
  Value displays = windowServer_.managedDisplaySpaces();
  const platform::SpaceID active = windowServer_.activeSpace();
  const bool isLastOurs = handedOverAt_ == spaces_.table().listChangedAt();
  if (!isLastOurs) {
    displays_ = {};
    listed_.clear();
  }
  Change change = take(std::move(displays));
  const std::size_t count = isLastOurs ? change.count : spaces_.spaces().size();
  const auto handedOverAt = spaces_.replace(change.first, count, std::move(change.by), active);
  // Whoever heard of it may have come here again.
  handedOverAt_ = std::max(handedOverAt_, handedOverAt);
}

SpaceObserver::Change SpaceObserver::take(Value displays) {
  if (displays == displays_) {
    return {};
  }
  std::vector<Listed> listed = listedIn(displays);
  const auto isAsItWas = [&](std::size_t before, std::size_t after) {
    const Listed& known = listed_[before];
    const bool isSame = areSame(known, listed[after]);
    listed[after].isSpace = isSame && known.isSpace;
    return isSame;
  };
  const Difference difference = differenceOf(listed_.size(), listed.size(), isAsItWas);
  const std::span<const Listed> before(listed_);
  Change change{.first = countSpaces(before.first(difference.first)),
                .count = countSpaces(before.subspan(difference.first, difference.before)),
                .by = {}};
  for (Listed& added : std::span(listed).subspan(difference.first, difference.after)) {
    if (auto space = parseSpace(*added.dictionary, *added.displayUUID)) {
      added.isSpace = true;
      change.by.push_back(*std::move(space));
    }
  }
  displays_ = std::move(displays);
  listed_ = std::move(listed);
  return change;
}

std::size_t SpaceObserver::countSpaces(std::span<const Listed> listed) {
  return static_cast<std::size_t>(std::ranges::count_if(listed, &Listed::isSpace));
}

bool SpaceObserver::areSame(const Listed& a, const Listed& b) {
  return (a.dictionary == b.dictionary || *a.dictionary == *b.dictionary) &&
         (a.displayUUID == b.displayUUID || *a.displayUUID == *b.displayUUID);
}

std::vector<SpaceObserver::Listed> SpaceObserver::listedIn(const Value& displays) {
  std::vector<Listed> listed;
  for (const Value::Dictionary* display : displays.toDictionaries().value_or(std::vector<const Value::Dictionary*>())) {
    const std::string* identifier = string(*display, key::displayIdentifier);
    const Value* list = platform::find(*display, key::spaces);
    const auto spaces = list == nullptr ? std::nullopt : list->toDictionaries();
    if (!spaces) {
      continue;
    }
    listed.reserve(listed.size() + spaces->size());
    for (const Value::Dictionary* space : *spaces) {
      listed.push_back({.dictionary = space, .displayUUID = identifier == nullptr ? &unnamedDisplay : identifier});
    }
  }
  return listed;
}

}  // namespace roomlattice
