#pragma once

#include "platform/linux/storage/FileDefaults.h"
#include "tests/x11/session/Environment.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace roomlattice::tests {

inline std::string textOf(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

inline void writeText(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

class FileDefaultsTest : public ::testing::Test {
 protected:
  platform::x11::FileDefaults defaults() {
    return platform::x11::FileDefaults(path_, [this](const std::string& line) { reports_.push_back(line); });
  }

  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_.parent_path())) {
      names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
  }

  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.path() / "config" / "roomlattice" / "settings.json";
  std::vector<std::string> reports_;
};

}  // namespace roomlattice::tests
