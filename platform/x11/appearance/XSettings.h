#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace roomlattice::platform::x11 {

/// The text settings in what an XSETTINGS manager publishes; those of other kinds are passed over. Nothing when the
/// bytes do not keep to the format.
std::optional<std::map<std::string, std::string>> parseXSettings(std::string_view bytes);

}  // namespace roomlattice::platform::x11
