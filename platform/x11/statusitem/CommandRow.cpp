#include "platform/x11/statusitem/CommandRow.h"

#include "platform/x11/drawing/Text.h"

#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr double highlightRadius = 4.0;
constexpr double titleToShortcut = 24.0;
constexpr double trailingMargin = 14.0;

Font font() {
  return {.size = systemFontSize()};
}

}  // namespace

CommandRow::CommandRow(std::string title, std::string shortcut, const Style& style, std::function<void()> run)
    : title_(std::move(title)),
      shortcut_(std::move(shortcut)),
      style_(style),
      run_(std::move(run)),
      titleSize_(measureText(title_, toQt(font()))),
      shortcutSize_(measureText(shortcut_, toQt(font()))) {
  const double width = style_.textX + titleSize_.width + titleToShortcut + shortcutSize_.width + trailingMargin;
  setFrame({{}, {width, style_.height}});
}

ViewContent CommandRow::content() const {
  const auto centred = [this](double x, const Size& size) {
    return Rect{{x, (style_.height - size.height) / 2}, size};
  };
  const double shortcutX = frame().size.width - trailingMargin - shortcutSize_.width;
  ViewContent content{
      .cornerRadius = highlightRadius,
      .elements = {{.frame = centred(style_.textX, titleSize_), .kind = TextElement{.text = title_, .font = font()}},
                   {.frame = centred(shortcutX, shortcutSize_),
                    .kind = TextElement{.text = shortcut_, .font = font(), .color = SystemColor::SecondaryLabel}}}};
  if (isHighlighted_) {
    content.background = style_.highlight;
  }
  return content;
}

void CommandRow::mouseEntered() {
  isHighlighted_ = true;
  contentChanged();
}

void CommandRow::mouseExited() {
  isHighlighted_ = false;
  contentChanged();
}

void CommandRow::mouseUp(Point) {
  const std::function<void()> run = run_;
  run();
}

}  // namespace roomlattice::platform::x11
