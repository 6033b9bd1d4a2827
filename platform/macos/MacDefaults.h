#pragma once

#include "platform/Defaults.h"

namespace roomlattice::platform::macos {

/// The application's domain of NSUserDefaults.
class MacDefaults final : public Defaults {
 public:
  std::optional<Value> object(const std::string& key) const override;
  void set(const std::string& key, const Value& value) override;
};

}  // namespace roomlattice::platform::macos
