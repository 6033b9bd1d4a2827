#include "spaces/SpaceObserver.h"

#include "support/Fatal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

using platform::Value;

// Strings, as each is looked for in every desktop of each snapshot.
const std::string displayIdentifierKey = "Display Identifier";
const std::string spacesKey = "Spaces";
const std::string managedSpaceIDKey = "ManagedSpaceID";
const std::string otherIdentifierKey = "id64";
const std::string uuidKey = "uuid";
const std::string typeKey = "type";

const std::string* string(const Value::Dictionary& dictionary, const std::string& key) {
  const Value* value = platform::find(dictionary, key);
  return value == nullptr ? nullptr : value->asString();
}

std::optional<std::int64_t> integer(const Value::Dictionary& dictionary, const std::string& key) {
  const Value* value = platform::find(dictionary, key);
  const std::int64_t* number = value == nullptr ? nullptr : value->asInteger();
  return number == nullptr ? std::nullopt : std::optional(*number);
}

/// Nothing for a space without an identifier.
std::optional<SpaceInfo> parseSpace(const Value::Dictionary& space, const std::string& displayUUID) {
  std::optional<std::int64_t> identifier = integer(space, managedSpaceIDKey);
  if (!identifier) {
    identifier = integer(space, otherIdentifierKey);
  }
  if (!identifier) {
    return std::nullopt;
  }
  if (*identifier < 0) {
    fatal("the window server gave a negative space identifier");
  }
  const std::string* uuid = string(space, uuidKey);
  return SpaceInfo{.spaceID = static_cast<platform::SpaceID>(*identifier),
                   .uuid = uuid == nullptr ? "space-" + std::to_string(*identifier) : *uuid,
                   .displayUUID = displayUUID,
                   .type = integer(space, typeKey).value_or(0)};
}

}  // namespace

SpaceObserver::SpaceObserver(platform::WindowServer& windowServer, platform::NotificationCenter& workspace,
                             SpaceManager& spaces)
    : windowServer_(windowServer),
      spaces_(spaces),
      observation_(
          workspace.observe(platform::notification::activeSpaceDidChange, [this] { activeSpaceDidChange(); })) {}

void SpaceObserver::refresh() {
  std::vector<SpaceInfo> spaces = parse(windowServer_.managedDisplaySpaces());
  spaces_.update(std::move(spaces), windowServer_.activeSpace());
}

std::vector<SpaceInfo> SpaceObserver::parse(const Value& displays) {
  std::vector<SpaceInfo> spaces;
  std::size_t position = 0;
  for (const Value::Dictionary* display : displays.toDictionaries().value_or(std::vector<const Value::Dictionary*>())) {
    const std::string* identifier = string(*display, displayIdentifierKey);
    const std::string displayUUID = identifier == nullptr ? "Main" : *identifier;
    const Value* list = platform::find(*display, spacesKey);
    if (list == nullptr || !list->toDictionaries()) {
      continue;
    }
    spaces.reserve(spaces.size() + list->asArray()->size());
    for (const Value& dictionary : *list->asArray()) {
      if (const auto& space = parse(position++, dictionary, displayUUID)) {
        spaces.push_back(*space);
      }
    }
  }
  parsed_.resize(position);
  return spaces;
}

const std::optional<SpaceInfo>& SpaceObserver::parse(std::size_t position, const Value& dictionary,
                                                     const std::string& displayUUID) {
  if (position == parsed_.size()) {
    parsed_.emplace_back();
  }
  Parsed& parsed = parsed_[position];
  if (parsed.dictionary != dictionary || parsed.displayUUID != displayUUID) {
    parsed = {dictionary, displayUUID, parseSpace(*dictionary.asDictionary(), displayUUID)};
  }
  return parsed.space;
}

}  // namespace roomlattice
