#pragma once

#include "platform/Window.h"
#include "platform/simulated/HostedView.h"
#include "platform/simulated/SimulatedDispatcher.h"
#include "platform/simulated/SpaceList.h"
#include "platform/simulated/VirtualTime.h"
#include "platform/simulated/WindowList.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace roomlattice::platform::simulated {

/// How often the program has set a property of a window, to whatever value.
struct WindowWrites {
  int alpha = 0;
  int frame = 0;
  int content = 0;
  int collectionBehavior = 0;

  bool operator==(const WindowWrites&) const = default;
};

/// An overlay window. Opacity moves linearly in virtual time. An animation that another takes the place of ends like
/// one that a direct set ends: its completion is not called.
class SimulatedWindow final : public Window, private ViewSurroundings, private FieldFocus {
 public:
  SimulatedWindow(const OverlayWindowOptions& options, const VirtualTime& time, SimulatedDispatcher& dispatcher,
                  const SpaceList& spaces, WindowList& windows);
  SimulatedWindow(const SimulatedWindow&) = delete;
  SimulatedWindow& operator=(const SimulatedWindow&) = delete;

  WindowNumber number() const override { return number_; }
  void setContentView(std::unique_ptr<View> view) override;
  View* contentView() const override { return view_.get(); }
  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame) override;
  void setCollectionBehavior(CollectionBehavior behavior) override;
  double alpha() const override;
  void setAlpha(double alpha) override;
  void animateAlpha(double alpha, Duration duration, std::function<void()> completion) override;
  void orderFront() override;
  void orderOut() override;

  WindowLevel level() const { return level_; }
  CollectionBehavior collectionBehavior() const { return collectionBehavior_; }
  bool isOrderedIn() const { return orderedIn_; }
  bool isAnimating() const { return animation_.has_value(); }

  /// The desktops the window is attached to; for one that joins all, not all of them.
  const std::set<SpaceID>& spaces() const { return attachedTo_; }
  /// Ordered in, and attached to `space` or joining all.
  bool isOn(SpaceID space) const;
  void attach(SpaceID space) { attachedTo_.insert(space); }
  void detach(SpaceID space) { attachedTo_.erase(space); }

  /// The texts the content view shows now, back to front.
  std::vector<std::string> texts() const;

  const WindowWrites& writes() const { return writes_; }

 private:
  struct Animation {
    double from = 0.0;
    double to = 0.0;
    Duration start{0};
    Duration duration{0};
    Registration end;
  };

  FieldFocus& fieldFocus() override { return *this; }
  bool moveTo(SimulatedTextField&) override { return false; }
  void contentWritten() override { ++writes_.content; }
  void cancelMenuTracking() override {}

  const VirtualTime& time_;
  SimulatedDispatcher& dispatcher_;
  const SpaceList& spaceList_;
  WindowList& windows_;
  WindowNumber number_;
  WindowLevel level_;
  CollectionBehavior collectionBehavior_;
  Rect frame_;
  double alpha_;
  bool orderedIn_ = false;
  std::set<SpaceID> attachedTo_;
  WindowWrites writes_;
  std::unique_ptr<View> view_;
  std::optional<HostedView> hosted_;
  std::optional<Animation> animation_;
  Registration registration_;
};

}  // namespace roomlattice::platform::simulated
