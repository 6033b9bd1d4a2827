#pragma once

#include "platform/Defaults.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform::simulated {

/// One program's view of the settings the machine keeps. What could not be stored is kept here and stored with the next
/// write that can be.
class SimulatedDefaults final : public Defaults {
 public:
  explicit SimulatedDefaults(SimulatedDesktop& desktop) : desktop_(desktop) {}

  std::optional<Value> object(const std::string& key) const override;
  void set(const std::string& key, const Value& value) override;

 private:
  SimulatedDesktop& desktop_;
  // A null stands for a removal.
  std::map<std::string, Value> unsaved_;
};

}  // namespace roomlattice::platform::simulated
