#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace roomlattice::tests {

/// Changes of the process's environment that end with this object.
class Environment {
 public:
  using Variables = std::map<std::string, std::optional<std::string>>;

  Environment() = default;
  explicit Environment(const Variables& variables);
  ~Environment();
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  /// Sets a variable, or unsets it.
  void set(const std::string& name, const std::optional<std::string>& value);

 private:
  Variables before_;
};

/// A folder that is gone, with all that is in it, with this object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace roomlattice::tests
