#pragma once

#include "platform/Dispatcher.h"
#include "platform/Geometry.h"
#include "platform/View.h"
#include "platform/WindowServer.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace roomlattice::platform {

/// The window server's numbers of stacking levels; a higher one is in front.
enum class WindowLevel : int { Floating = 3, StatusWindow = 25 };

/// How a window behaves towards desktops and full-screen spaces: the window server's bits.
enum class CollectionBehavior : std::uint32_t {
  CanJoinAllSpaces = 1U << 0,
  Managed = 1U << 2,
  Transient = 1U << 3,
  Stationary = 1U << 4,
  IgnoresCycle = 1U << 6,
  FullScreenAuxiliary = 1U << 8,
};

constexpr CollectionBehavior operator|(CollectionBehavior a, CollectionBehavior b) {
  return static_cast<CollectionBehavior>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}

constexpr bool contains(CollectionBehavior set, CollectionBehavior member) {
  return (static_cast<std::uint32_t>(set) & static_cast<std::uint32_t>(member)) != 0;
}

/// A borderless, transparent window with a shadow, which clicks pass through and which never takes the keyboard.
struct OverlayWindowOptions {
  Rect frame;  // screen coordinates
  WindowLevel level = WindowLevel::Floating;
  CollectionBehavior collectionBehavior = CollectionBehavior::Managed;
  double alpha = 0.0;
};

/// Such a window. It is not ordered in at creation, and it is gone from the screen with this object.
class Window {
 public:
  virtual ~Window() = default;

  virtual WindowNumber number() const = 0;

  /// Takes over `view` and shows it; the caller sets the view's frame.
  virtual void setContentView(std::unique_ptr<View> view) = 0;

  /// The view, owned by the window; null before one was set.
  virtual View* contentView() const = 0;

  /// As it was given, or as it came to be shown.
  virtual Rect frame() const = 0;

  /// A backend may move the edges to pixels near by, so that what is in it is sharp.
  virtual void setFrame(const Rect& frame) = 0;

  virtual void setCollectionBehavior(CollectionBehavior behavior) = 0;

  /// The opacity now seen, 0–1; while an animation runs, the value it has reached.
  virtual double alpha() const = 0;

  /// Sets the opacity at once and ends a running animation of it, whose completion is then not called.
  virtual void setAlpha(double alpha) = 0;

  /// Moves the opacity from its present value to `alpha` within `duration`, in place of a running animation, whose
  /// completion is then not called. With a duration of 0 it is set at once, without any implicit animation.
  ///
  /// `completion` is called after the end, on a later turn; it may own this window. It is not called when the window
  /// goes before the end. Once the end is reached, which is at once with a duration of 0, a backend may call it in any
  /// case: also when the window has gone since, or another opacity was asked for.
  virtual void animateAlpha(
      double alpha, Duration duration, std::function<void()> completion = [] {}) = 0;

  /// Shows the window in front of the others of its level without making it key; on the active desktop, unless it is
  /// attached to others.
  virtual void orderFront() = 0;

  virtual void orderOut() = 0;
};

}  // namespace roomlattice::platform
