#pragma once

#include "platform/DockSwipe.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace roomlattice::platform::simulated {

/// How far fingers have come on the way to the next desktop (1 is there) and how fast they are; negative to the left.
struct SwipeMotion {
  double progress = 0.0;
  double velocity = 0.0;
};

/// A person at a simulated desktop. Each act is done, and has been handled by the program, when its function returns;
/// only swipes() goes on by itself. An act on something that is not there stops the program.
class SimulatedUser {
 public:
  explicit SimulatedUser(SimulatedDesktop& desktop) : desktop_(desktop) {}

  // --- Trackpad
  /// A whole swipe: it begins at once, moves every 8 ms and ends after 40 ms; with the Dock's settling time the desktop
  /// arrives 290 ms from now.
  void swipes(Direction direction);
  /// One event of a swipe.
  void movesFingers(DockSwipe::Phase phase, SwipeMotion motion);

  // --- Pointer; points are in screen coordinates
  void movesPointerTo(Point point);
  /// Moves the pointer there and clicks on what the program has there, or beside it.
  void clicks(Point point);
  void clicksStatusItem();

  // --- Open menu; rows count from 0, commands and separators included
  /// Moves the pointer into the middle of a row.
  void entersRow(std::size_t row);
  /// Moves the pointer away from the menu.
  void leavesMenu();
  /// Clicks into the middle of a row, or at a point in the coordinates of its view.
  void clicksRow(std::size_t row);
  void clicksRow(std::size_t row, Point inView);
  /// Enters a row and clicks the button shown in it.
  void clicksRowButton(std::size_t row);
  void clicksCommand(std::string_view title);

  // --- Keyboard
  void pressesKey(std::uint16_t keyCode);
  void pressesCommandKey(const std::string& key);
  /// One key press for each character.
  void types(std::string_view text);

  // --- Controls of the tabbed window, named as SimulatedTabbedWindow::find has it
  void slides(std::string_view slider, double value);
  void clicksCheckBox(std::string_view checkBox);
  void chooses(std::string_view popUp, std::string_view item);
  void picksColor(std::string_view colorWell, const Color& color);
  void pushes(std::string_view button);
  void closesWindow();

 private:
  void presses(const SimulatedKeyEvent& event);
  MenuSession& menu() const;
  SimulatedTabbedWindow& window() const;
  ControlReference control(std::string_view name) const;

  SimulatedDesktop& desktop_;
};

}  // namespace roomlattice::platform::simulated
