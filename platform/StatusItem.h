#pragma once

#include "platform/Color.h"
#include "platform/Image.h"
#include "platform/Menu.h"

#include <optional>
#include <string>
#include <variant>

namespace roomlattice::platform {

/// As wide as the button's title or image.
struct VariableLength {
  bool operator==(const VariableLength&) const = default;
};

/// As wide as the status bar is high.
struct SquareLength {
  bool operator==(const SquareLength&) const = default;
};

/// A width in points, whatever the content; a longer title is truncated.
struct FixedLength {
  double points = 0.0;

  bool operator==(const FixedLength&) const = default;
};

using StatusItemLength = std::variant<VariableLength, SquareLength, FixedLength>;

/// A title in the status bar's font. Without a colour of its own it has the bar's text colour.
struct StatusTitle {
  std::string text;
  std::optional<Color> color;
  /// What stands for the title where there is room for a character or two; its first one, where there is no number.
  std::optional<int> number;

  bool operator==(const StatusTitle&) const = default;
};

/// All that a status button shows; the bar's own tint applies to nothing but template images and uncoloured titles.
struct StatusButtonContent {
  StatusTitle title;
  std::optional<Image> image;
  std::optional<Color> background;
  double cornerRadius = 0.0;  // of the background, in points

  bool operator==(const StatusButtonContent&) const = default;
};

class StatusButton {
 public:
  virtual ~StatusButton() = default;

  /// Replaces what the button shows.
  virtual void setContent(const StatusButtonContent& content) = 0;
};

/// The program's place in the desktop's status bar; it leaves the bar with this object.
class StatusItem {
 public:
  virtual ~StatusItem() = default;

  /// The button, owned by the item; null where the bar gives none.
  virtual StatusButton* button() = 0;

  virtual void setLength(const StatusItemLength& length) = 0;

  /// The menu a click opens, or null. It must outlive the item or be replaced before it goes.
  virtual void setMenu(Menu* menu) = 0;

  /// Opens the menu as a click does, from within this call or on a later turn. Nothing happens while it is open, or
  /// where there is none to open.
  virtual void openMenu() = 0;
};

}  // namespace roomlattice::platform
