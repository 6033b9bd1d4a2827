#include "preferences/PageBuilder.h"

#include "support/Stack.h"
#include "support/Text.h"

#include <algorithm>
#include <utility>

namespace roomlattice {
namespace {

using platform::Size;

constexpr Size pageSize{490.0, 400.0};
constexpr double topMargin = 24.0;
constexpr double sideMargin = 20.0;
constexpr double rowSpacing = 12.0;
constexpr double rowLabelWidth = 160.0;
constexpr double sliderWidth = 240.0;
constexpr double narrowestPopUp = 180.0;
constexpr Size colorWellSize{44.0, 24.0};
constexpr platform::Font rowLabelFont{.size = 13.0, .weight = platform::FontWeight::Medium};

/// "Palette:" names a control "Palette".
std::string accessibilityLabel(const std::string& label) {
  std::string name = trimWhitespace(label);
  if (name.ends_with(':')) {
    name.pop_back();
  }
  return name;
}

}  // namespace

std::size_t PageBuilder::add(platform::Control control) {
  const Size size = userInterface_.intrinsicSize(control);
  rows_.push_back({Child{std::move(control), size}});
  return count_++;
}

std::size_t PageBuilder::add(platform::Control control, double width, std::string accessibilityLabel) {
  const Size size{width, userInterface_.intrinsicSize(control).height};
  rows_.push_back({Child{std::move(control), size, std::move(accessibilityLabel)}});
  return count_++;
}

void PageBuilder::addRow(const std::string& label, platform::Control control, RowWidth width) {
  platform::LabelControl rowLabel{.text = label, .font = rowLabelFont};
  const Size labelSize{rowLabelWidth, userInterface_.intrinsicSize(rowLabel).height};
  const Size size = controlSize(control, width);
  rows_.push_back({Child{std::move(rowLabel), labelSize}, Child{std::move(control), size, accessibilityLabel(label)}});
  count_ += 2;
}

void PageBuilder::addCheckBox(const std::string& title, bool isOn, std::function<void(bool isOn)> setter) {
  using platform::CheckState;
  add(platform::CheckBoxControl{
      .title = title,
      .state = isOn ? CheckState::On : CheckState::Off,
      .action = [setter = std::move(setter)](CheckState state) { setter(state == CheckState::On); }});
}

Size PageBuilder::controlSize(const platform::Control& control, RowWidth width) const {
  if (std::holds_alternative<platform::ColorWellControl>(control)) {
    return colorWellSize;
  }
  Size size = userInterface_.intrinsicSize(control);
  if (width == RowWidth::Slider) {
    size.width = sliderWidth;
  }
  if (std::holds_alternative<platform::PopUpControl>(control)) {
    size.width = std::max(size.width, narrowestPopUp);
  }
  return size;
}

platform::TabPage PageBuilder::build(std::string identifier, std::string label) const {
  std::vector<Stack> rowStacks;
  std::vector<Size> rowSizes;
  for (const Row& row : rows_) {
    std::vector<Size> sizes;
    for (const Child& child : row) {
      sizes.push_back(child.size);
    }
    rowStacks.push_back(horizontalStack(sizes, rowSpacing));
    rowSizes.push_back(rowStacks.back().size);
  }
  const Stack page = verticalStack(rowSizes, spacing_);
  const platform::Point origin{sideMargin, pageSize.height - topMargin - page.size.height};
  platform::TabPage result{.identifier = std::move(identifier), .label = std::move(label), .size = pageSize};
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    for (std::size_t child = 0; child < rows_[row].size(); ++child) {
      platform::Rect frame = rowStacks[row].frames[child];
      frame.origin.x += origin.x + page.frames[row].origin.x;
      frame.origin.y += origin.y + page.frames[row].origin.y;
      result.controls.push_back({frame, rows_[row][child].control, rows_[row][child].accessibilityLabel});
    }
  }
  return result;
}

}  // namespace roomlattice
