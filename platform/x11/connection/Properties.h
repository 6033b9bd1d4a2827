#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::x11 {

/// Reading window properties. Anybody may write anything into them: a property of another type or format than asked
/// for counts as absent, and lengths are bounded.

/// The elements of a property of format 32.
std::optional<std::vector<std::uint32_t>> readNumbers(X11Connection& connection, xcb_window_t window,
                                                      xcb_atom_t property, xcb_atom_t type);

/// The first element of a property of format 32.
std::optional<std::uint32_t> readNumber(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                        xcb_atom_t type);

/// The bytes of a property of format 8.
std::optional<std::string> readBytes(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t type);

/// A UTF8_STRING property; what is not UTF-8 in it reads as U+FFFD.
std::optional<std::string> readText(X11Connection& connection, xcb_window_t window, xcb_atom_t property);

/// Texts that end in a zero byte each, the last one's optional; what is not UTF-8 in them is U+FFFD.
std::vector<std::string> textsOf(const std::string& bytes);

/// The same in the place of `texts`. Those that are as they were are not made anew.
void replaceTexts(std::vector<std::string>& texts, const std::string& bytes);

/// The same, with what is not UTF-8 as it is.
std::vector<std::string> rawTextsOf(const std::string& bytes);

/// The texts with a zero byte at the end of each. One that has a zero byte in it ends there.
std::string bytesOf(const std::vector<std::string>& texts);

}  // namespace roomlattice::platform::x11
