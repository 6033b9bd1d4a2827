#pragma once

#include "platform/Color.h"
#include "platform/Events.h"
#include "platform/Font.h"
#include "platform/Geometry.h"
#include "platform/Image.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::platform {

/// Colours that belong to the desktop's theme and follow it.
enum class SystemColor { Label, SecondaryLabel };

using TextColor = std::variant<Color, SystemColor>;

enum class TextAlignment { Leading, Center };

/// A single line, centred vertically in its frame and truncated at its tail with an ellipsis.
struct TextElement {
  std::string text;
  Font font;
  TextColor color = SystemColor::Label;
  TextAlignment alignment = TextAlignment::Leading;

  bool operator==(const TextElement&) const = default;
};

struct ImageElement {
  Image image;

  bool operator==(const ImageElement&) const = default;
};

/// An indeterminate, turning progress indicator in its form for dark surroundings.
struct SpinnerElement {
  bool operator==(const SpinnerElement&) const = default;
};

/// A borderless push button showing a symbol; a click calls View::buttonClicked.
struct ButtonElement {
  SymbolImage symbol;
  std::string toolTip;

  bool operator==(const ButtonElement&) const = default;
};

/// The platform's own one-line text field, with its bezel, background and focus ring. Its text is reached through
/// ViewHost::textField.
struct TextFieldElement {
  Font font;

  bool operator==(const TextFieldElement&) const = default;
};

struct ViewElement {
  Rect frame;  // in the view's coordinates
  bool hidden = false;
  std::variant<TextElement, ImageElement, SpinnerElement, ButtonElement, TextFieldElement> kind;

  bool operator==(const ViewElement&) const = default;
};

/// All that a view shows, back to front: a background with rounded corners, then the elements. A view's list keeps its
/// length and the kinds in it, so that backends may keep a control per place.
struct ViewContent {
  std::optional<Color> background;
  double cornerRadius = 0.0;
  std::vector<ViewElement> elements;

  bool operator==(const ViewContent&) const = default;
};

/// The native text field behind a view's TextFieldElement. It is the backend's and lives as long as the view is hosted.
class TextField {
 public:
  virtual ~TextField() = default;

  virtual std::string text() const = 0;
  virtual void setText(const std::string& text) = 0;

  /// Gives the field the keyboard and, once it is being edited, selects all of its text. Nothing happens in no window.
  virtual void focusAndSelectAll() = 0;

  /// Lets the field's editor interpret a key press; false when the field is not being edited.
  virtual bool interpret(const KeyEvent& event) = 0;
};

/// What a backend does for a view that it shows.
class ViewHost {
 public:
  virtual ~ViewHost() = default;

  /// The view's content or frame has changed. May be called often; drawing comes later.
  virtual void viewChanged() = 0;

  /// The field behind the view's TextFieldElement, with the view's latest content in effect for it; none when the view
  /// has no such element.
  virtual TextField* textField() = 0;

  /// Closes the menu the view's item is in, if it is in one.
  virtual void cancelMenuTracking() = 0;
};

/// A command of the text field's editor that its view may take over.
enum class EditCommand { InsertNewline, Cancel };

enum class CommandDisposition { NotHandled, Handled };

enum class HitTarget { None, View, Button, TextField };

/// A view of the program's own: it decides what is where, and a backend draws it and brings it input. Points are in the
/// view's coordinates.
class View {
 public:
  View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  virtual ViewContent content() const = 0;

  Rect frame() const { return frame_; }
  void setFrame(const Rect& frame);

  /// Set by the backend while it shows the view, null otherwise. A row of a menu is shown while the menu is open.
  ViewHost* host() const { return host_; }

  /// Null ends the showing: it is called then, at once, and before the view is destroyed or shown again.
  void setHost(ViewHost* host);

  /// Which part of the view takes a click at `point`. Backends ask before they hand a click to anything.
  virtual HitTarget hitTest(Point point) const;

  virtual void mouseEntered() {}
  virtual void mouseExited() {}

  /// A click that hitTest gave to the view itself was released at `point`.
  virtual void mouseUp(Point point);

  /// The button of the view was clicked, by mouse, keyboard or accessibility.
  virtual void buttonClicked() {}

  virtual CommandDisposition doCommand(EditCommand command);

 protected:
  /// The backend shows the view no longer: what was begun in front of the user's eyes, such as an edit, is over.
  virtual void hostingEnded() {}

  /// To be called after every change of what content() returns.
  void contentChanged();

 private:
  Rect frame_;
  ViewHost* host_ = nullptr;
};

}  // namespace roomlattice::platform
