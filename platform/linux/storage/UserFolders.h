#pragma once

#include <filesystem>
#include <optional>

namespace roomlattice::platform::linux {

/// The folders that the XDG base directory rules give the program for a user's files; they need not exist.
/// Nothing for a user without a home.
std::optional<std::filesystem::path> configurationFolder();
std::optional<std::filesystem::path> stateFolder();

/// Makes a folder that only the user can enter, and those above it that are missing. Whether that worked shows when the
/// folder is used.
void makeFolder(const std::filesystem::path& folder);

}  // namespace roomlattice::platform::linux
