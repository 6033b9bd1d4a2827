#include "tests/linux/session/Environment.h"

#include <cstdlib>
#include <stdexcept>

namespace roomlattice::tests {
namespace {

void change(const std::string& name, const std::optional<std::string>& value) {
  if (value) {
    setenv(name.c_str(), value->c_str(), 1);
  } else {
    unsetenv(name.c_str());
  }
}

}  // namespace

Environment::Environment(const Variables& variables) {
  for (const auto& [name, value] : variables) {
    set(name, value);
  }
}

Environment::~Environment() {
  for (const auto& [name, value] : before_) {
    change(name, value);
  }
}

void Environment::set(const std::string& name, const std::optional<std::string>& value) {
  const char* now = std::getenv(name.c_str());
  before_.emplace(name, now == nullptr ? std::nullopt : std::optional<std::string>(now));
  change(name, value);
}

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "roomlattice-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("cannot make a temporary folder");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace roomlattice::tests
