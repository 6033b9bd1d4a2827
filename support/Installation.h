#pragma once

#include "platform/Platform.h"

#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

namespace roomlattice {

/// Makes a platform the one the process runs on, and owns the program's shared instances: they are made on first use
/// and end, last made first, with this object. One at a time; the platform must outlive it.
class Installation {
 public:
  explicit Installation(platform::Platform& platform);
  ~Installation();
  Installation(const Installation&) = delete;
  Installation& operator=(const Installation&) = delete;

  /// The one in force; having none stops the program.
  static Installation& current();

  platform::Platform& platform() { return platform_; }

  /// The one `T` of this installation. The first caller makes it, of the platform and `arguments`.
  template <class T, class... Arguments>
  T& shared(Arguments&... arguments) {
    for (const auto& [type, instance] : instances_) {
      if (type == typeid(T)) {
        return *static_cast<T*>(instance.get());
      }
    }
    auto made = std::make_shared<T>(platform_, arguments...);
    T& instance = *made;
    instances_.emplace_back(typeid(T), std::move(made));
    return instance;
  }

 private:
  platform::Platform& platform_;
  std::vector<std::pair<std::type_index, std::shared_ptr<void>>> instances_;
};

}  // namespace roomlattice
