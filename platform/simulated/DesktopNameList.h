#pragma once

#include "platform/DesktopNames.h"
#include "platform/simulated/VirtualTime.h"
#include "support/Listeners.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace roomlattice::platform::simulated {

/// The names that a desktop environment keeps for desktops, by uuid. There are none to share, until some are set.
class DesktopNameList {
 public:
  using Names = DesktopNames::Names;

  explicit DesktopNameList(VirtualTime& time) : time_(time) {}

  const std::optional<Names>& all() const { return names_; }

  /// All of them, in place of those before; everybody is told before this returns.
  void replace(std::optional<Names> names);

  /// The name of one desktop; everybody is told before this returns. There are names to share from then on.
  void rename(const std::string& uuid, const std::string& name);

  /// A program asks for a name. The environment gives it on a later turn, as `answer` has it.
  void ask(const std::string& uuid, const std::string& name);

  /// What the environment makes of a name that a program asks for; nothing where it leaves the desktop the name it has.
  std::function<std::optional<std::string>(const std::string& uuid, const std::string& name)> answer =
      [](const std::string&, const std::string& name) { return std::optional(name); };

  /// How often programs have asked.
  int wishes() const { return wishes_; }

  Registration observe(std::function<void()> handler) { return listeners_.add(std::move(handler)); }

 private:
  VirtualTime& time_;
  std::optional<Names> names_;
  int wishes_ = 0;
  Listeners<> listeners_;
};

}  // namespace roomlattice::platform::simulated
