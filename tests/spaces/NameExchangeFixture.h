#pragma once

#include "spaces/NameExchange.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"
#include "tests/support/SimulatedFixture.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// The model on a simulated desktop with three desktops, and the exchange of their names, once it has begun.
class NameExchangeFixture : public SimulatedFixture {
 protected:
  using Texts = std::vector<std::string>;

  std::string uuid(std::size_t number) const { return "UUID-" + std::to_string(100 + number); }

  /// Stores a name before the program starts.
  void keep(std::size_t number, const std::string& name) {
    platform::Value::Dictionary names;
    if (const auto* stored = desktop.storedDefaults()["SpaceNames"].asDictionary()) {
      names = *stored;
    }
    names[uuid(number)] = name;
    desktop.storedDefaults()["SpaceNames"] = names;
  }

  void begin() {
    observer_.emplace(platform().windowServer(), platform().notifications().workspaceCenter(), manager());
    observer_->refresh();
    exchange_.emplace(platform(), manager());
  }

  void end() {
    exchange_.reset();
    observer_.reset();
    relaunch();
  }

  SpaceManager& manager() { return SpaceManager::shared(); }

  void setName(std::size_t number, const std::string& name) {
    manager().setName(name, manager().spaces().at(number - 1));
  }

  /// The names of all desktops in the environment, in one go.
  void callThere(const Texts& texts) {
    platform::DesktopNames::Names names;
    std::size_t number = 0;
    for (const std::string& text : texts) {
      names[uuid(++number)] = text;
    }
    desktop.names().replace(names);
  }
  void nameThere(std::size_t number, const std::string& name) { desktop.names().rename(uuid(number), name); }

  /// The names of the first three desktops in the environment.
  Texts there() const {
    Texts texts;
    for (std::size_t number = 1; number <= 3; ++number) {
      const auto found = desktop.names().all()->find(uuid(number));
      texts.push_back(found == desktop.names().all()->end() ? "(none)" : found->second);
    }
    return texts;
  }

  /// The names of all desktops in the program; for those without one, the number.
  std::string shown() {
    std::string text;
    for (const SpaceInfo& space : manager().spaces()) {
      const std::optional<int> number = manager().defaultNumber(space);
      text += (text.empty() ? "" : " ") + (number ? std::to_string(*number) : manager().displayName(space));
    }
    return text;
  }

 private:
  std::optional<SpaceObserver> observer_;
  std::optional<NameExchange> exchange_;
};

}  // namespace roomlattice::tests
