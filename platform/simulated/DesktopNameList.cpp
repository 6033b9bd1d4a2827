#include "platform/simulated/DesktopNameList.h"

namespace roomlattice::platform::simulated {

void DesktopNameList::replace(std::optional<Names> names) {
  names_ = std::move(names);
  listeners_.notify();
}

void DesktopNameList::rename(const std::string& uuid, const std::string& name) {
  Names names = names_.value_or(Names());
  names[uuid] = name;
  replace(std::move(names));
}

void DesktopNameList::ask(const std::string& uuid, const std::string& name) {
  ++wishes_;
  time_.post(Duration(0), [this, uuid, name] {
    if (const std::optional<std::string> given = names_ ? answer(uuid, name) : std::nullopt) {
      rename(uuid, *given);
    }
  });
}

}  // namespace roomlattice::platform::simulated
