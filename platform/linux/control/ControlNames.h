#pragma once

#include <string>

namespace roomlattice::platform::linux {

// How other programs find this one on the session bus.
inline constexpr const char* controlName = "org.roomlattice.Roomlattice";
inline constexpr const char* controlPath = "/org/roomlattice/Roomlattice";
inline constexpr const char* controlInterface = "org.roomlattice.Roomlattice";
inline constexpr const char* controlErrorPrefix = "org.roomlattice.Roomlattice.Error.";

/// The name that the program on an X11 display has besides, as there may be one on each of a user's displays: ":0" and
/// "unix:0.0" give "org.roomlattice.Roomlattice.Display_0_0". Empty for what is no display (X(7)).
std::string controlNameOfDisplay(const std::string& display);

}  // namespace roomlattice::platform::linux
