#include "platform/simulated/SimulatedStatusItem.h"

#include "platform/simulated/TextMetrics.h"

#include <variant>

namespace roomlattice::platform::simulated {
namespace {

constexpr double barHeight = 24.0;
constexpr double distanceFromRight = 200.0;

}  // namespace

SimulatedStatusItem::SimulatedStatusItem(const StatusItemLength& length, const DisplaySettings& settings,
                                         const Faults& faults, StatusBar& bar)
    : settings_(settings), faults_(faults), bar_(bar), length_(length), registration_(bar.add(*this)) {}

StatusButton* SimulatedStatusItem::button() {
  return faults_.statusButtonMissing ? nullptr : this;
}

void SimulatedStatusItem::setMenu(Menu* menu) {
  if (menu != menu_) {
    bar_.closeMenuOf(*this);
  }
  menu_ = menu;
}

double SimulatedStatusItem::width() const {
  if (const auto* fixed = std::get_if<FixedLength>(&length_)) {
    return fixed->points;
  }
  if (std::holds_alternative<SquareLength>(length_)) {
    return barHeight;
  }
  return content_.image ? content_.image->size.width
                        : measureText(content_.title.text, {.size = statusFontPoints}).width;
}

Rect SimulatedStatusItem::frame() const {
  if (settings_.screens.empty()) {
    return {};
  }
  const Rect& screen = settings_.screens.front().frame;
  return {{screen.maxX() - distanceFromRight - width(), screen.maxY() - barHeight}, {width(), barHeight}};
}

void SimulatedStatusItem::openMenu() {
  if (!bar_.isMenuOpenOf(*this)) {
    click();
  }
}

void SimulatedStatusItem::click() {
  bar_.click(*this, button() == nullptr ? nullptr : menu_, frame().origin);
}

void SimulatedStatusItem::setContent(const StatusButtonContent& content) {
  ++contentWrites_;
  content_ = content;
}

}  // namespace roomlattice::platform::simulated
