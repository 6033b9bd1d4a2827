#include "platform/ManagedSpaces.h"

#include <utility>

namespace roomlattice::platform {

Value spaceDictionary(SpaceID space, const std::string& uuid, std::int64_t type) {
  return Value::Dictionary{{managedSpacesKey::managedSpaceID, static_cast<std::int64_t>(space)},
                           {managedSpacesKey::uuid, uuid},
                           {managedSpacesKey::type, type}};
}

Value displayDictionary(const std::string& identifier, Value::Array spaces) {
  return Value::Dictionary{{managedSpacesKey::displayIdentifier, identifier},
                           {managedSpacesKey::spaces, std::move(spaces)}};
}

}  // namespace roomlattice::platform
