#pragma once

#include "platform/Color.h"
#include "platform/Font.h"
#include "platform/Geometry.h"
#include "platform/View.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform {

/// The native controls of a page, as data: what they are and show at first, and whom they call when the user changes
/// them. Actions never come while a control is being made.

/// A text that cannot be edited. With a wrap width it breaks into lines no longer than that; otherwise it is one line,
/// which is cut at its tail where its frame is too narrow.
struct LabelControl {
  std::string text;
  Font font;
  SystemColor color = SystemColor::Label;
  std::optional<double> wrapWidth;
};

struct SliderControl {
  double value = 0.0;
  double minimum = 0.0;
  double maximum = 1.0;
  std::function<void(double value)> action = [](double) {};
};

enum class CheckState { Off, On, Mixed };

struct CheckBoxControl {
  std::string title;
  CheckState state = CheckState::Off;
  std::function<void(CheckState state)> action = [](CheckState) {};
};

struct PopUpControl {
  std::vector<std::string> items;
  int selectedIndex = 0;
  std::function<void(int index)> action = [](int) {};
};

struct ColorWellControl {
  Color color;
  std::int64_t tag = 0;
  std::function<void(std::int64_t tag, Color color)> action = [](std::int64_t, const Color&) {};
};

struct PushButtonControl {
  std::string title;
  std::function<void()> action = [] {};
};

/// A bezelled text field whose text can be selected and copied but not edited.
struct SelectableTextControl {
  std::string text;
  Font font;
};

using Control = std::variant<LabelControl, SliderControl, CheckBoxControl, PopUpControl, ColorWellControl,
                             PushButtonControl, SelectableTextControl>;

/// A control at its place; frames are in the page's coordinates. Keyboard focus goes in the order of the list.
struct PlacedControl {
  Rect frame;
  Control control;
  /// What assistive technology calls the control; empty where its own text says it.
  std::string accessibilityLabel = {};
};

struct TabPage {
  std::string identifier;
  std::string label;
  Size size;
  std::vector<PlacedControl> controls;
};

/// A titled, closable window of fixed size with one tab view in it.
struct TabbedWindowModel {
  std::string title;
  Size contentSize;
  Rect tabFrame;  // in the content's coordinates
  std::vector<TabPage> pages;
};

/// A control of a tabbed window: the page and the place in the page's list.
struct ControlReference {
  std::size_t page = 0;
  std::size_t control = 0;
};

/// The native window made of such a model, centred on the screen and hidden at first. Closing only hides it.
class TabbedWindow {
 public:
  virtual ~TabbedWindow() = default;

  /// Shows the window and brings it to the front of the application's windows, with the keyboard.
  virtual void show() = 0;

  /// Replaces the text of a label.
  virtual void setText(ControlReference label, const std::string& text) = 0;

  /// Lets a push button be clicked, or not.
  virtual void setEnabled(ControlReference button, bool enabled) = 0;
};

}  // namespace roomlattice::platform
