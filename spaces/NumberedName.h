#pragma once

#include <string>

namespace roomlattice {

/// Whether a desktop of this name has none but the number its desktop environment counts it by: an empty or blank
/// text, a number, or a number with the word that environments count desktops with, such as "Workspace 3", in English
/// or another of the languages that they speak.
bool isNumberedName(const std::string& name);

/// A numbered name that is like `example`, itself one, but for the number; "Desktop" with it where the example has no
/// number.
std::string numberedNameLike(const std::string& example, int number);

}  // namespace roomlattice
