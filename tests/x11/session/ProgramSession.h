#pragma once

#include "tests/x11/session/Program.h"
#include "tests/x11/session/ProgramWindows.h"
#include "tests/x11/session/X11Session.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace roomlattice::tests {

enum class Compositing { None, Picom };

/// What a test that has such a parameter runs on; printed as the end of its name.
struct Desktop {
  WindowManagerKind windowManager;
  Compositing compositing = Compositing::None;
};

inline std::ostream& operator<<(std::ostream& stream, const Desktop& desktop) {
  return stream << desktop.windowManager << (desktop.compositing == Compositing::Picom ? "_picom" : "");
}

/// The program in a session of its own: used as a user would, and looked at as other programs see it.
class ProgramSession {
 public:
  explicit ProgramSession(const SessionOptions& options = {}, Compositing compositing = Compositing::None);

  X11Session session;

  /// As a program of its own beside the one under test; its events are delivered by `deliverEvents` alone.
  platform::x11::X11Connection& connection() { return *connection_; }

  /// Starts the program with these settings, JSON, if any; false when its status item does not appear.
  bool start(const std::string& settings = {});

  /// Starts it, and waits until its tour of the desktops is over and the desktop in front is at rest.
  bool startAndTour(const std::string& settings = {});

  Program& program() { return *program_; }
  ProgramWindows windows() { return {connection(), program_->process().id()}; }

  /// Asks the window manager for a desktop as any other program would.
  void askForDesktop(int desktop);

  /// Asks for it and waits until it is in front; false when the window manager does not switch.
  bool switchTo(int desktop);
  bool isOnDesktop(int desktop);

  /// The colour at the status item's right end; none without a status item.
  std::optional<QColor> statusItemColor();

  /// Moves the pointer as a mouse would, in pixels, until it is there.
  void movePointerTo(const QPoint& pixel);
  void clickAt(const QPoint& pixel);

  /// Presses keys, by their X names such as "ctrl+comma" or "KP_Enter", one after the other.
  void pressKeys(const std::vector<std::string>& keys);
  void typeText(const std::string& text);

  /// Opens the menu by a click on the status item; false when it does not come up, ready for use.
  bool openMenu();
  bool isMenuOpen() { return windows().popup().has_value(); }
  bool menuCloses();

  /// Places in the open menu.
  QPoint menuRow(int row);
  QPoint pencilOfMenuRow(int row);

  /// Turns a row of the open menu, which has two at least, into a text field.
  void editMenuRow(int row);

  QPoint preferencesCommand(int rows);
  QPoint quitCommand();

 private:
  QRect menuFrame();

  std::unique_ptr<platform::x11::X11Connection> connection_;
  std::unique_ptr<ChildProcess> compositor_;
  std::unique_ptr<Program> program_;
};

/// The colours that the program gives desktops as long as the user gives them none, by position.
QColor defaultColorOf(int desktop);

}  // namespace roomlattice::tests
