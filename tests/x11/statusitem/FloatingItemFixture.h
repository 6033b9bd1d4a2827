#pragma once

#include "platform/x11/statusitem/FloatingItem.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/UserInterfaceFixture.h"
#include "tests/x11/session/WindowProbe.h"

#include <QApplication>
#include <QColor>
#include <QRect>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace roomlattice::tests {

/// A status item in an X11 session that has no panel with a place for it.
class FloatingItemFixture : public ::testing::Test {
 protected:
  static constexpr int screenWidth = 1280;
  static constexpr int height = 24;
  static inline const QColor red{255, 0, 0};

  explicit FloatingItemFixture(const SessionOptions& options = {}) : ui_(options) {}

  static platform::StatusButtonContent redTitle(const std::string& text) {
    return {.title = {.text = text, .color = platform::Color::black()},
            .background = platform::Color{1.0, 0.0, 0.0},
            .cornerRadius = 3.0};
  }

  static platform::Image squareIcon() {
    platform::Image image{.size = {16.0, 16.0}, .isTemplate = true};
    image.shapes.push_back({.bounds = {{}, {16.0, 16.0}}, .color = platform::Color::black()});
    return image;
  }

  platform::StatusItem& show(const platform::StatusButtonContent& content,
                             const platform::StatusItemLength& length = platform::VariableLength{}) {
    item_ = ui_.userInterface.createStatusItem(length);
    item_->button()->setContent(content);
    return *item_;
  }

  /// The item where it floats; null while it does not.
  static QWidget* floating() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(
        windows, [](QWidget* window) { return dynamic_cast<platform::x11::FloatingItem*>(window) != nullptr; });
    return found == windows.end() ? nullptr : *found;
  }

  WindowProbe probe() {
    QWidget* window = floating();
    const WId id = window == nullptr ? WId{XCB_WINDOW_NONE} : window->winId();
    return {ui_.connection(), static_cast<xcb_window_t>(id)};
  }

  bool comesToStandAt(const QRect& frame) {
    return waitFor([this, frame] { return probe().isViewable() && probe().geometry() == frame; });
  }

  static QRect middleOfTheTop(int width) {
    return {static_cast<int>(std::lround((screenWidth - width) / 2.0)), 0, width, height};
  }

  bool standsInTheMiddle(int width) { return comesToStandAt(middleOfTheTop(width)); }

  /// The colour at the right end of an item of that width, beside its title.
  QColor colorAtTheEnd(int width) { return pixel(middleOfTheTop(width).right() - 2, 12); }

  /// Presses the first button on the item.
  void click() {
    ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "1"});
  }

  int titleWidth(const std::string& text) {
    const platform::Font font{.size = ui_.userInterface.systemFontSize(), .weight = platform::FontWeight::Medium};
    return static_cast<int>(std::ceil(ui_.userInterface.measure(text, font).width));
  }

  /// Moves the pointer with the first button down.
  void drag(const QPoint& from, const QPoint& to) {
    ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(from.x()), std::to_string(from.y()), "mousedown",
                     "1", "mousemove", "--sync", std::to_string(to.x()), std::to_string(from.y()), "mousemove",
                     "--sync", std::to_string(to.x()), std::to_string(to.y()), "mouseup", "1"});
  }

  QColor pixel(int x, int y) { return screenColor(ui_.connection(), {x, y}); }

  UserInterfaceSession ui_;
  std::unique_ptr<platform::StatusItem> item_;
};

}  // namespace roomlattice::tests
