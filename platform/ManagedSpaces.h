#pragma once

#include "platform/Value.h"
#include "platform/WindowServer.h"

#include <cstdint>
#include <string>

namespace roomlattice::platform {

/// The dictionaries of WindowServer::managedDisplaySpaces.

/// The keys in them. Strings, as each is looked for in every desktop.
namespace managedSpacesKey {
inline const std::string displayIdentifier = "Display Identifier";
inline const std::string spaces = "Spaces";
inline const std::string managedSpaceID = "ManagedSpaceID";
inline const std::string otherIdentifier = "id64";
inline const std::string uuid = "uuid";
inline const std::string type = "type";
}  // namespace managedSpacesKey

/// That of one desktop. Backends keep it for as long as the desktop is as it is: to find that it is the same one then
/// takes a comparison of addresses.
Value spaceDictionary(SpaceID space, const std::string& uuid, std::int64_t type);

/// That of a display with the dictionaries of its desktops.
Value displayDictionary(const std::string& identifier, Value::Array spaces);

}  // namespace roomlattice::platform
