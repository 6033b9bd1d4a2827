#pragma once

#include "platform/UserInterface.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace roomlattice {

/// Lays a preferences page out: one vertical stack of controls and labelled rows, hanging from the page's top. Sizes
/// are the controls' own in the platform's look, but for the widths that are stated. A page with more than fits goes on
/// below its bottom edge.
class PageBuilder {
 public:
  /// A width of a control in a row.
  enum class RowWidth { OfItself, Slider };

  /// Between the rows of a page that is a form.
  static constexpr double formSpacing = 20.0;

  PageBuilder(const platform::UserInterface& userInterface, double spacing)
      : userInterface_(userInterface), spacing_(spacing) {}

  /// Appends a control and returns its place in the page's list.
  std::size_t add(platform::Control control);

  /// The same with a stated width, in points, and a name for assistive technology.
  std::size_t add(platform::Control control, double width, std::string accessibilityLabel = {});

  /// Appends a label of fixed width, whatever its text needs, with a control behind it. The label's text also names the
  /// control to assistive technology.
  void addRow(const std::string& label, platform::Control control, RowWidth width = RowWidth::OfItself);

  /// Appends a check box that is on or off; `setter` is called with what the user makes of it.
  void addCheckBox(const std::string& title, bool isOn, std::function<void(bool isOn)> setter);

  platform::TabPage build(std::string identifier, std::string label) const;

 private:
  struct Child {
    platform::Control control;
    platform::Size size;
    std::string accessibilityLabel = {};
  };
  using Row = std::vector<Child>;

  platform::Size controlSize(const platform::Control& control, RowWidth width) const;

  const platform::UserInterface& userInterface_;
  double spacing_;
  std::vector<Row> rows_;
  std::size_t count_ = 0;
};

}  // namespace roomlattice
