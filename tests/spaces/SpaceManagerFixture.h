#pragma once

#include "spaces/SpaceManager.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/SimulatedFixture.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace roomlattice::tests {

/// A model that follows the simulated desktop, and a record of what it posts into the event stream.
class SpaceManagerFixture : public SimulatedFixture {
 protected:
  using SimulatedFixture::SimulatedFixture;

  /// Takes a snapshot now and after every change that the workspace reports.
  void follow() {
    observation_ = platform().notifications().workspaceCenter().observe(platform::notification::activeSpaceDidChange,
                                                                        [this] { takeSnapshot(); });
    takeSnapshot();
  }

  const SpaceInfo& regularSpace(std::size_t index) const {
    std::size_t rest = index;
    return *std::ranges::find_if(manager.spaces(),
                                 [&rest](const SpaceInfo& space) { return space.isRegular() && rest-- == 0; });
  }

  struct Swipe {
    platform::Duration at{0};
    platform::Direction direction = platform::Direction::Right;

    bool operator==(const Swipe&) const = default;
  };

  /// The beginnings of the swipes posted so far.
  std::vector<Swipe> swipes() const {
    std::vector<Swipe> swipes;
    for (const PostedEvent& event : recorder.posted()) {
      if (valueOf(event, platform::EventField::Phase) == FieldValue(std::int64_t{1})) {
        const double velocity = std::get<double>(valueOf(event, platform::EventField::Velocity));
        swipes.push_back({event.at, velocity > 0.0 ? platform::Direction::Right : platform::Direction::Left});
      }
    }
    return swipes;
  }

  /// Their directions, as letters.
  std::string directions() const {
    std::string letters;
    for (const Swipe& swipe : swipes()) {
      letters += swipe.direction == platform::Direction::Right ? 'R' : 'L';
    }
    return letters;
  }

  EventRecorder recorder{platform(), desktop.time()};
  SpaceManager manager{recorder};

 private:
  static FieldValue valueOf(const PostedEvent& event, platform::EventField field) {
    return std::ranges::find(event.fields, field, &EventFields::value_type::first)->second;
  }

  void takeSnapshot() {
    std::vector<SpaceInfo> spaces;
    for (const platform::simulated::Display& display : desktop.spaces().displays()) {
      for (const platform::simulated::Space& space : display.spaces) {
        spaces.push_back(
            {.spaceID = space.id, .uuid = space.uuid, .displayUUID = display.identifier, .type = space.type});
      }
    }
    manager.update(std::move(spaces), desktop.activeSpace());
  }

  platform::Registration observation_;
};

}  // namespace roomlattice::tests
