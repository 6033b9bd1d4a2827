#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace roomlattice::gnustep {

/// One field of an event, as it was set.
struct FieldRecord {
  enum class Kind { Integer, Double };

  std::uint32_t field = 0;
  Kind kind = Kind::Integer;
  double value = 0.0;

  bool operator==(const FieldRecord&) const = default;
};

/// An event that was posted, with its fields in the order they were set.
struct PostedEvent {
  std::uint32_t location = 0;
  bool hasSource = false;
  std::vector<FieldRecord> fields;

  bool operator==(const PostedEvent&) const = default;
};

/// How a tap was made and what became of it.
struct TapRecord {
  std::uint32_t location = 0;
  std::uint32_t placement = 0;
  std::uint32_t options = 0;
  std::uint64_t mask = 0;
  long sourceOrder = -1;
  bool isInCommonModes = false;
  bool isEnabled = false;

  bool operator==(const TapRecord&) const = default;
};

/// The session's event stream. One for the process; reset at the start of a test.
class EventStream {
 public:
  static EventStream& shared();

  void reset();

  std::vector<PostedEvent> posted;
  /// Called after each post.
  std::function<void(const PostedEvent&)> onPost;
  bool refusesEvents = false;
  bool refusesTaps = false;

  /// The taps that have not been invalidated.
  std::vector<TapRecord> taps() const;

  /// Sends an event with these fields through all enabled taps whose sources are in the run loop, as the window server
  /// does when the user moves. False when a tap gave back another event.
  bool send(const std::vector<FieldRecord>& fields, std::uint32_t type = 30);

  /// Disables the taps and tells them so.
  void disableTaps(std::uint32_t notice);

  /// Events, ports and sources that are alive.
  static int liveObjects();
};

}  // namespace roomlattice::gnustep
