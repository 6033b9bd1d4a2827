#include "platform/simulated/MenuSession.h"

#include "platform/simulated/TextMetrics.h"
#include "support/Fatal.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <variant>

namespace roomlattice::platform::simulated {
namespace {

constexpr double commandHeight = 22.0;
constexpr double separatorHeight = 12.0;
constexpr double commandMargins = 44.0;

Size rowSize(const MenuItem& item) {
  if (const auto* view = std::get_if<ViewItem>(&item)) {
    return view->view->frame().size;
  }
  if (const auto* command = std::get_if<CommandItem>(&item)) {
    return {measureText(command->title, {.size = systemFontPoints}).width + commandMargins, commandHeight};
  }
  return {0.0, separatorHeight};
}

Point inRow(Point point, const Rect& row) {
  return {point.x - row.minX(), point.y - row.minY()};
}

}  // namespace

MenuSession::MenuSession(Menu& menu, Point topLeft) : menu_(menu) {
  menu_.needsUpdate(menu_);
  layOut(topLeft);
}

MenuSession::~MenuSession() = default;

void MenuSession::layOut(Point topLeft) {
  for (const MenuItem& item : menu_.items) {
    const Size size = rowSize(item);
    frame_.size.width = std::max(frame_.size.width, size.width);
    frame_.size.height += size.height;
  }
  frame_.origin = {topLeft.x, topLeft.y - frame_.size.height};
  ViewSurroundings& surroundings = *this;
  double top = topLeft.y;
  for (const MenuItem& item : menu_.items) {
    const double height = rowSize(item).height;
    top -= height;
    const auto* view = std::get_if<ViewItem>(&item);
    rows_.push_back({.frame = {{frame_.minX(), top}, {frame_.size.width, height}},
                     .host = view == nullptr ? nullptr : std::make_unique<HostedView>(*view->view, surroundings)});
  }
}

const Rect& MenuSession::rowFrame(std::size_t row) const {
  if (row >= rows_.size()) {
    fatal("the menu has no such row");
  }
  return rows_[row].frame;
}

std::optional<std::size_t> MenuSession::rowAt(Point point) const {
  const auto found = std::ranges::find_if(rows_, [point](const Row& row) { return row.frame.contains(point); });
  return found == rows_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

View* MenuSession::view(std::size_t row) const {
  return row < rows_.size() && rows_[row].host != nullptr ? &rows_[row].host->view() : nullptr;
}

SimulatedTextField* MenuSession::textField(std::size_t row) const {
  return row < rows_.size() && rows_[row].host != nullptr ? rows_[row].host->textField() : nullptr;
}

SimulatedTextField* MenuSession::focusedField() const {
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (SimulatedTextField* const field = textField(row); field != nullptr && field->isEditing()) {
      return field;
    }
  }
  return nullptr;
}

std::vector<std::string> MenuSession::titles() const {
  std::vector<std::string> titles;
  for (const MenuItem& item : menu_.items) {
    const auto* command = std::get_if<CommandItem>(&item);
    titles.push_back(command == nullptr ? std::string() : command->title);
  }
  return titles;
}

void MenuSession::pointerMoved(Point point) {
  const std::optional<std::size_t> row = rowAt(point);
  if (row == entered_) {
    return;
  }
  leaveRow();
  entered_ = row;
  if (row) {
    if (View* const entered = view(*row)) {
      entered->mouseEntered();
    }
  }
}

void MenuSession::leaveRow() {
  if (const auto left = std::exchange(entered_, std::nullopt)) {
    if (View* const row = view(*left)) {
      row->mouseExited();
    }
  }
}

void MenuSession::click(Point point) {
  const std::optional<std::size_t> row = rowAt(point);
  if (!row) {
    cancelMenuTracking();
    return;
  }
  if (HostedView* const host = rows_[*row].host.get()) {
    host->click(inRow(point, rows_[*row].frame));
  } else if (const auto* command = std::get_if<CommandItem>(&menu_.items[*row])) {
    invoke(*command);
  }
}

void MenuSession::keyDown(const SimulatedKeyEvent& event) {
  if (SimulatedTextField* const field = focusedField(); field != nullptr && event.modifier() == KeyModifier::None) {
    field->interpret(event);
    return;
  }
  if (event.code() == keyCode::escape) {
    cancelMenuTracking();
    return;
  }
  for (const MenuItem& item : menu_.items) {
    const auto* command = std::get_if<CommandItem>(&item);
    if (command != nullptr && event.modifier() == KeyModifier::Command && !command->keyEquivalent.empty() &&
        command->keyEquivalent == event.text()) {
      invoke(*command);
      return;
    }
  }
}

void MenuSession::invoke(const CommandItem& command) {
  const std::function<void()> action = command.action;
  cancelMenuTracking();
  action();
}

void MenuSession::cancelMenuTracking() {
  open_ = false;
  rows_.clear();
}

bool MenuSession::moveTo(SimulatedTextField& field) {
  SimulatedTextField* const previous = focusedField();
  if (previous != nullptr && previous != &field) {
    previous->endEditing();
  }
  return open_;
}

}  // namespace roomlattice::platform::simulated
