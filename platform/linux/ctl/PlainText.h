#pragma once

#include <cstddef>
#include <string>

namespace roomlattice::platform::linux {

/// `text` (UTF-8) on one line: a question mark stands for each control character, the terminal's included.
std::string plainText(const std::string& text);

/// How many columns of a terminal `text` takes, by the character types of the locale that is set.
std::size_t columnsOf(const std::string& text);

}  // namespace roomlattice::platform::linux
