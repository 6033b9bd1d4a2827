#pragma once

#include "platform/Value.h"

#include <optional>
#include <string>

namespace roomlattice::platform {

/// The persistent settings of the program: typed values by key.
class Defaults {
 public:
  virtual ~Defaults() = default;

  /// The value now stored under `key`, whoever wrote it; nothing when the key is absent.
  virtual std::optional<Value> object(const std::string& key) const = 0;

  /// Stores `value` under `key`, keeping its type. A null removes the key. The next read sees it even where it could
  /// not be made persistent; the backend reports that on the log.
  virtual void set(const std::string& key, const Value& value) = 0;
};

}  // namespace roomlattice::platform
