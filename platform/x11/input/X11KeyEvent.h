#pragma once

#include "platform/Events.h"

#include <QKeyEvent>

namespace roomlattice::platform::x11 {

/// A key press of the toolkit's, on loan for the time it is being handled.
class X11KeyEvent final : public KeyEvent {
 public:
  explicit X11KeyEvent(const QKeyEvent& event) : event_(event) {}

  std::uint16_t code() const override;

  const QKeyEvent& event() const { return event_; }

 private:
  const QKeyEvent& event_;
};

}  // namespace roomlattice::platform::x11
