#pragma once

#include "platform/Color.h"
#include "platform/View.h"

#include <functional>
#include <string>

namespace roomlattice::platform::x11 {

/// A command in a menu, drawn as the program draws the rows above it: the toolkit would give it another size, another
/// left edge and another look under the pointer.
class CommandRow final : public View {
 public:
  struct Style {
    double height = 0.0;
    /// Where its title begins.
    double textX = 0.0;
    /// Its colour under the pointer.
    Color highlight;
  };

  /// `run` is called by a click, and may end this object.
  CommandRow(std::string title, std::string shortcut, const Style& style, std::function<void()> run);

  ViewContent content() const override;
  void mouseEntered() override;
  void mouseExited() override;
  void mouseUp(Point point) override;

 private:
  std::string title_;
  std::string shortcut_;
  Style style_;
  std::function<void()> run_;
  Size titleSize_;
  Size shortcutSize_;
  bool isHighlighted_ = false;
};

}  // namespace roomlattice::platform::x11
