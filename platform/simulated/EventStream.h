#pragma once

#include "platform/Events.h"
#include "platform/simulated/Dock.h"
#include "platform/simulated/Faults.h"
#include "platform/simulated/SimulatedKeyEvent.h"
#include "platform/simulated/VirtualTime.h"
#include "support/FieldEvent.h"

#include <cstdint>

namespace roomlattice::platform::simulated {

enum class TapDisabling { ByTimeout, ByUserInput };

/// What the stream brings to the program that runs.
class InputListener {
 public:
  virtual ~InputListener() = default;

  /// An event passed the taps' place.
  virtual void eventPassed(const Event& event, std::uint32_t type) = 0;
  virtual void tapsDisabled(TapDisabling cause) = 0;
  /// The pointer moved over a window of another application.
  virtual void pointerMovedElsewhere() = 0;
  /// A key was pressed that is meant for the program.
  virtual KeyDisposition keyPressed(const KeyEvent& event) = 0;
};

/// The session's stream of input events: the taps of the program first, then the Dock.
class EventStream {
 public:
  EventStream(VirtualTime& time, Dock& dock, Faults& faults) : time_(time), dock_(dock), faults_(faults) {}

  /// One program at a time; it listens until the registration ends. The stream outlives the registration.
  Registration attach(InputListener& listener);

  /// What a process posts: it passes on a later turn of the queue, with `processID` as its source, unless the
  /// permission is missing at this call.
  void post(const Event& event, std::int64_t processID);

  /// What the hardware makes passes at once.
  void pass(const FieldEvent& event);

  void disableTaps(TapDisabling cause);

  Point pointer() const { return pointer_; }
  void setPointer(Point pointer) { pointer_ = pointer; }

  /// Null while no program runs.
  InputListener* listener() const { return listener_; }

 private:
  VirtualTime& time_;
  Dock& dock_;
  Faults& faults_;
  InputListener* listener_ = nullptr;
  Point pointer_;
};

}  // namespace roomlattice::platform::simulated
