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

std::string stringOr(const Value::Dictionary& dictionary, const char* key, const std::string& fallback) {
  const Value* value = platform::find(dictionary, key);
  const std::string* string = value == nullptr ? nullptr : value->asString();
  return string == nullptr ? fallback : *string;
}

std::optional<std::int64_t> integer(const Value::Dictionary& dictionary, const char* key) {
  const Value* value = platform::find(dictionary, key);
  const std::int64_t* number = value == nullptr ? nullptr : value->asInteger();
  return number == nullptr ? std::nullopt : std::optional(*number);
}

/// Nothing for a space without an identifier.
std::optional<SpaceInfo> parseSpace(const Value::Dictionary& space, const std::string& displayUUID) {
  std::optional<std::int64_t> identifier = integer(space, "ManagedSpaceID");
  if (!identifier) {
    identifier = integer(space, "id64");
  }
  if (!identifier) {
    return std::nullopt;
  }
  if (*identifier < 0) {
    fatal("the window server gave a negative space identifier");
  }
  return SpaceInfo{.spaceID = static_cast<platform::SpaceID>(*identifier),
                   .uuid = stringOr(space, "uuid", "space-" + std::to_string(*identifier)),
                   .displayUUID = displayUUID,
                   .type = integer(space, "type").value_or(0)};
}

std::vector<SpaceInfo> parseDisplays(const Value& displays) {
  std::vector<SpaceInfo> spaces;
  for (const Value::Dictionary* display : displays.toDictionaries().value_or(std::vector<const Value::Dictionary*>())) {
    const std::string displayUUID = stringOr(*display, "Display Identifier", "Main");
    const Value* list = platform::find(*display, "Spaces");
    const auto dictionaries = list == nullptr ? std::nullopt : list->toDictionaries();
    if (!dictionaries) {
      continue;
    }
    for (const Value::Dictionary* dictionary : *dictionaries) {
      if (std::optional<SpaceInfo> space = parseSpace(*dictionary, displayUUID)) {
        spaces.push_back(std::move(*space));
      }
    }
  }
  return spaces;
}

}  // namespace

SpaceObserver::SpaceObserver(platform::WindowServer& windowServer, platform::NotificationCenter& workspace,
                             SpaceManager& spaces)
    : windowServer_(windowServer),
      spaces_(spaces),
      observation_(
          workspace.observe(platform::notification::activeSpaceDidChange, [this] { activeSpaceDidChange(); })) {}

void SpaceObserver::refresh() {
  std::vector<SpaceInfo> spaces = parseDisplays(windowServer_.managedDisplaySpaces());
  spaces_.update(std::move(spaces), windowServer_.activeSpace());
}

}  // namespace roomlattice
