#pragma once

#include "platform/Controls.h"
#include "platform/simulated/WindowList.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace roomlattice::platform::simulated {

/// A tabbed window whose controls are worked by the functions at the end, each one act of the user, its action called
/// before they return. The window need not be visible, nor the control's page in front: whoever writes the act means
/// that the user goes there first. A reference to no control, or to one of another kind, stops the program.
class SimulatedTabbedWindow final : public TabbedWindow {
 public:
  /// `frame` is the window's on the screen, its title bar included.
  SimulatedTabbedWindow(TabbedWindowModel model, const Rect& frame, WindowList& windows);
  SimulatedTabbedWindow(const SimulatedTabbedWindow&) = delete;
  SimulatedTabbedWindow& operator=(const SimulatedTabbedWindow&) = delete;

  void show() override;
  void setText(ControlReference label, const std::string& text) override;
  void setEnabled(ControlReference button, bool enabled) override;

  bool isVisible() const { return visible_; }
  Rect frame() const { return frame_; }

  /// The model as given, with the controls' present texts and values.
  const TabbedWindowModel& model() const { return model_; }

  /// The first control with `text` as its title or accessibility label; or else the control that follows the first
  /// label with this text, whose row it is in.
  std::optional<ControlReference> find(std::string_view text) const;

  /// The control as it is now.
  template <class T>
  const T& control(ControlReference reference) const {
    const T* const found = std::get_if<T>(&at(reference));
    if (found == nullptr) {
      noSuchControl();
    }
    return *found;
  }

  bool isEnabled(ControlReference button) const { return !disabled_.contains({button.page, button.control}); }

  /// Hides the window.
  void close() { visible_ = false; }

  /// Drags a slider to `value`, or as near as its range allows.
  void slide(ControlReference slider, double value);

  /// Turns a check box on, or off if it was on.
  void toggle(ControlReference checkBox);

  /// Brings a check box into any state; the mixed one too, which no click leads to.
  void check(ControlReference checkBox, CheckState state);

  /// Chooses an item. An index outside of the items is handed on as well, with no item selected.
  void choose(ControlReference popUp, int index);

  void pickColor(ControlReference colorWell, const Color& color);

  /// Clicks a push button; nothing happens while it is disabled.
  void push(ControlReference button);

 private:
  [[noreturn]] static void noSuchControl();
  const Control& at(ControlReference reference) const;

  /// To change a control of the program's model.
  template <class T>
  T& edit(ControlReference reference) {
    return const_cast<T&>(control<T>(reference));
  }

  TabbedWindowModel model_;
  Rect frame_;
  bool visible_ = false;
  std::set<std::pair<std::size_t, std::size_t>> disabled_;
  Registration registration_;
};

}  // namespace roomlattice::platform::simulated
