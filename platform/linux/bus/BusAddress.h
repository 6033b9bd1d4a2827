#pragma once

#include "platform/Registration.h"

#include <chrono>
#include <optional>
#include <string>

namespace roomlattice::platform::linux {

/// Where the rules of D-Bus have the bus; nothing where there is none.
std::optional<std::string> sessionBusAddress();
std::string systemBusAddress();

/// The service for people with disabilities, which is at-spi's.
inline constexpr const char* accessibilityService = "org.a11y.Bus";

/// Whether that service is on the session bus and leaves what the toolkit would ask it without an answer until `limit`
/// has passed, or the bus does that it leads to, or the registry on that, or the session bus itself.
bool isAccessibilityMute(std::chrono::milliseconds limit);

/// The toolkit waits on the main thread, for its services for people with disabilities and others, as long as the
/// session bus takes, and the accessibility service on it, and that one's own bus. One that has not let anybody in, or
/// not answered, after `limit` is kept from the toolkit while the result lives: the environment then has none, while
/// sessionBusAddress still tells where it is. Gives an empty registration where all answer or are not there.
/// `accessibilityBus` is where the toolkit finds that one's bus besides; empty where it does not. To be called before
/// the toolkit is used, while there is one thread.
Registration hideMuteBuses(std::chrono::milliseconds limit, const std::string& accessibilityBus = {});

}  // namespace roomlattice::platform::linux
