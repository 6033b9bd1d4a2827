#pragma once

#include <filesystem>
#include <string>

namespace roomlattice::tests {

std::string textOf(const std::filesystem::path& path);

/// Makes the folders above it as well.
void writeText(const std::filesystem::path& path, const std::string& text);

std::string replaceAll(std::string text, const std::string& what, const std::string& by);

}  // namespace roomlattice::tests
