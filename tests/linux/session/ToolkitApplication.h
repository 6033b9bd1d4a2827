#pragma once

#include <array>
#include <string>

namespace roomlattice::tests {

/// A Qt application, such as QCoreApplication, for tests of parts that need its event loop.
template <class Application>
class ToolkitApplication {
 public:
  Application& get() { return application_; }

 private:
  std::string name_ = "roomlattice-test";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  Application application_{count_, arguments_.data()};
};

}  // namespace roomlattice::tests
