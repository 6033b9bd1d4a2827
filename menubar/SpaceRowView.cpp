#include "menubar/SpaceRowView.h"

#include "support/Text.h"

#include <algorithm>
#include <utility>

namespace roomlattice {
namespace {

using platform::Rect;

constexpr double cornerRadius = 4.0;
constexpr double highlightAlpha = 0.18;

constexpr double leadingMargin = 14.0;
constexpr double trailingMargin = 10.0;
constexpr double dotSide = 14.0;
constexpr double ringLineWidth = 1.5;
constexpr double dotToLabel = 10.0;
constexpr double labelToPencil = 8.0;
constexpr double pencilSide = 18.0;
constexpr double editFieldHeight = 20.0;
constexpr double labelX = leadingMargin + dotSide + dotToLabel;

}  // namespace

SpaceRowView::SpaceRowView(platform::Platform& platform, SpaceInfo space, bool isActive,
                           const platform::Color& dotColor, std::string displayName)
    : platform_(platform),
      space_(std::move(space)),
      isActive_(isActive),
      dotColor_(dotColor),
      displayName_(std::move(displayName)),
      labelText_(displayName_) {}

platform::ViewContent SpaceRowView::content() const {
  const double middle = frame().size.height * 0.5;
  const Rect dotFrame{{leadingMargin, middle - dotSide * 0.5}, {dotSide, dotSide}};
  platform::ViewContent content{
      .cornerRadius = cornerRadius,
      .elements = {
          {.frame = dotFrame, .kind = platform::ImageElement{makeDot()}},
          {.frame = labelFrame(),
           .hidden = isEditing_,
           .kind = platform::TextElement{.text = labelText_, .font = font()}},
          {.frame = editFieldFrame(), .hidden = !isEditing_, .kind = platform::TextFieldElement{font()}},
          {.frame = pencilFrame(),
           .hidden = !isPencilVisible_,
           .kind =
               platform::ButtonElement{.symbol = {.name = "square.and.pencil", .accessibilityDescription = "Rename"},
                                       .toolTip = "Rename"}},
      }};
  if (isHighlighted_) {
    content.background = platform_.userInterface().accentColor().withAlpha(highlightAlpha);
  }
  return content;
}

platform::Image SpaceRowView::makeDot() const {
  platform::Shape dot{.kind = platform::ShapeKind::Ellipse, .bounds = {{}, {dotSide, dotSide}}, .color = dotColor_};
  if (!isActive_) {
    dot.bounds = {{1.0, 1.0}, {dotSide - 2.0, dotSide - 2.0}};
    dot.lineWidth = ringLineWidth;
  }
  return {.size = {dotSide, dotSide}, .shapes = {dot}};
}

platform::Font SpaceRowView::font() const {
  return {.size = platform_.userInterface().systemFontSize(),
          .weight = isActive_ ? platform::FontWeight::Semibold : platform::FontWeight::Regular};
}

Rect SpaceRowView::labelFrame() const {
  const platform::Size text = platform_.userInterface().measure(labelText_, font());
  const double available = std::max(pencilFrame().minX() - labelToPencil - labelX, 0.0);
  return {{labelX, (frame().size.height - text.height) * 0.5}, {std::min(text.width, available), text.height}};
}

Rect SpaceRowView::editFieldFrame() const {
  const platform::Size row = frame().size;
  return {{labelX, (row.height - editFieldHeight) * 0.5},
          {std::max(row.width - trailingMargin - labelX, 0.0), editFieldHeight}};
}

Rect SpaceRowView::pencilFrame() const {
  const platform::Size row = frame().size;
  return {{row.width - trailingMargin - pencilSide, (row.height - pencilSide) * 0.5}, {pencilSide, pencilSide}};
}

bool SpaceRowView::isOnPencil(platform::Point point) const {
  return isPencilVisible_ && pencilFrame().contains(point);
}

platform::HitTarget SpaceRowView::hitTest(platform::Point point) const {
  if (View::hitTest(point) == platform::HitTarget::None) {
    return platform::HitTarget::None;
  }
  if (isEditing_ && editFieldFrame().contains(point)) {
    return platform::HitTarget::TextField;
  }
  return isOnPencil(point) ? platform::HitTarget::Button : platform::HitTarget::View;
}

void SpaceRowView::mouseEntered() {
  if (!isEditing_) {
    isPencilVisible_ = true;
    isHighlighted_ = true;
    contentChanged();
  }
}

void SpaceRowView::mouseExited() {
  if (!isEditing_) {
    isPencilVisible_ = false;
    isHighlighted_ = false;
    contentChanged();
  }
}

void SpaceRowView::mouseUp(platform::Point point) {
  if (isEditing_ || isOnPencil(point)) {
    return;
  }
  // The switch starts only after the menu has gone.
  const std::function<void()> switchLater = onSwitch;
  if (host() != nullptr) {
    host()->cancelMenuTracking();
  }
  if (switchLater) {
    platform_.dispatcher().async(switchLater);
  }
}

platform::TextField* SpaceRowView::textField() const {
  return host() == nullptr ? nullptr : host()->textField();
}

void SpaceRowView::renameClicked() {
  if (isEditing_) {
    return;
  }
  isEditing_ = true;
  isPencilVisible_ = false;
  contentChanged();
  if (platform::TextField* field = textField()) {
    field->setText(displayName_);
    field->focusAndSelectAll();
  }
  installMonitor();
}

void SpaceRowView::installMonitor() {
  eventMonitor_ =
      platform_.events().monitorLocalKeyDown([this](const platform::KeyEvent& event) { return handleKey(event); });
}

platform::KeyDisposition SpaceRowView::handleKey(const platform::KeyEvent& event) {
  using platform::KeyDisposition;
  switch (event.code()) {
    case platform::keyCode::keypadEnter:
    case platform::keyCode::returnKey:
      commit();
      return KeyDisposition::Swallow;
    case platform::keyCode::escape:
      cancelRename();
      return KeyDisposition::Swallow;
    default: {
      platform::TextField* field = textField();
      return field != nullptr && field->interpret(event) ? KeyDisposition::Swallow : KeyDisposition::PassOn;
    }
  }
}

void SpaceRowView::commit() {
  if (!isEditing_) {
    return;
  }
  const platform::TextField* field = textField();
  const std::string typed = field == nullptr ? displayName_ : field->text();
  // The label shows what was typed, blanks at the ends included; what becomes of it is the model's affair.
  labelText_ = trimWhitespace(typed).empty() ? displayName_ : typed;
  endEditing();
  if (onCommitRename) {
    onCommitRename(typed);
  }
}

void SpaceRowView::cancelRename() {
  if (isEditing_) {
    endEditing();
  }
}

void SpaceRowView::endEditing() {
  eventMonitor_.cancel();
  isEditing_ = false;
  contentChanged();
}

platform::CommandDisposition SpaceRowView::doCommand(platform::EditCommand command) {
  switch (command) {
    case platform::EditCommand::InsertNewline:
      commit();
      break;
    case platform::EditCommand::Cancel:
      cancelRename();
      break;
  }
  return platform::CommandDisposition::Handled;
}

}  // namespace roomlattice
