#pragma once

#include "platform/Events.h"
#include "support/Listeners.h"

#include <QObject>
#include <functional>

namespace roomlattice::platform::x11 {

/// Sees the key presses of the application before its widgets do.
class KeyMonitor final : private QObject {
 public:
  using Handler = std::function<KeyDisposition(const KeyEvent&)>;

  /// Calls `handler` for each key press; one that it swallows goes no further.
  Registration observe(Handler handler);

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  Listeners<const KeyEvent&, KeyDisposition&> listeners_;
  bool installed_ = false;
};

}  // namespace roomlattice::platform::x11
