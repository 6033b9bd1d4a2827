#pragma once

#include "platform/linux/storage/LinuxDefaults.h"
#include "tests/linux/session/Environment.h"
#include "tests/linux/session/TextFile.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace roomlattice::tests {

class LinuxDefaultsTest : public ::testing::Test {
 protected:
  platform::linux::LinuxDefaults defaults() {
    return platform::linux::LinuxDefaults(
        path_, [this](const std::string& line) { reports_.push_back(line); }, std::chrono::milliseconds(20));
  }

  /// Sets a value and waits until it is in the file, or has failed to get there.
  static void setAndWait(platform::linux::LinuxDefaults& defaults, const std::string& key,
                         const platform::Value& value) {
    defaults.set(key, value);
    defaults.waitUntilWritten(std::chrono::seconds(30));
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
