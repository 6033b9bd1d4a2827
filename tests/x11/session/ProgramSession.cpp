#include "tests/x11/session/ProgramSession.h"

#include "tests/x11/session/ScreenImage.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <stdexcept>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;
using platform::x11::XcbPointer;

constexpr int rowHeight = 24;

bool isComposited(X11Connection& connection) {
  const xcb_atom_t selection = connection.atom("_NET_WM_CM_S" + std::to_string(connection.screenNumber()));
  const XcbPointer<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection.raw(), xcb_get_selection_owner(connection.raw(), selection), nullptr));
  return reply != nullptr && reply->owner != XCB_WINDOW_NONE;
}

QPoint pointerOf(X11Connection& connection) {
  const XcbPointer<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(connection.raw(), xcb_query_pointer(connection.raw(), connection.root()), nullptr));
  return reply == nullptr ? QPoint(-1, -1) : QPoint(reply->root_x, reply->root_y);
}

}  // namespace

ProgramSession::ProgramSession(const SessionOptions& options, Compositing compositing)
    : session(options), connection_(X11Connection::open()) {
  session.run({"hsetroot", "-solid", "#0000ff"});
  if (compositing == Compositing::Picom) {
    compositor_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"picom", "--config", "/dev/null", "--backend", "xrender"});
    if (!waitFor([this] { return isComposited(connection()); })) {
      throw std::runtime_error("the compositor does not start: " + compositor_->errorOutput());
    }
  }
}

bool ProgramSession::start(const std::string& settings) {
  if (!settings.empty()) {
    std::filesystem::create_directories(Program::settingsFile().parent_path());
    std::ofstream(Program::settingsFile()) << settings;
  }
  program_ = std::make_unique<Program>();
  return program_->isUp();
}

bool ProgramSession::startAndTour(const std::string& settings) {
  return start(settings) && program_->hasLogged("tour end") &&
         waitFor([this] { return windows().overlaysEverywhere().empty(); });
}

void ProgramSession::askForDesktop(int desktop) {
  connection().sendToRoot(connection().root(), connection().ewmh()->_NET_CURRENT_DESKTOP,
                          {static_cast<std::uint32_t>(desktop), XCB_CURRENT_TIME, 0, 0, 0});
  connection().flush();
}

bool ProgramSession::switchTo(int desktop) {
  askForDesktop(desktop);
  return waitFor([&] { return isOnDesktop(desktop); });
}

bool ProgramSession::isOnDesktop(int desktop) {
  return session.currentDesktop() == desktop;
}

std::optional<QColor> ProgramSession::statusItemColor() {
  const std::optional<WindowProbe> item = windows().statusItem();
  const std::optional<QRect> frame = item ? item->geometry() : std::nullopt;
  if (!frame) {
    return std::nullopt;
  }
  return screenColor(connection(), frame->topRight() + QPoint(-4, frame->height() / 2));
}

void ProgramSession::movePointerTo(const QPoint& pixel) {
  const bool there = waitFor([&] {
    const QPoint way = pixel - pointerOf(connection());
    if (way.isNull()) {
      return true;
    }
    session.run({"xdotool", "mousemove_relative", "--", std::to_string(way.x()), std::to_string(way.y())});
    return false;
  });
  if (!there) {
    throw std::runtime_error("the pointer does not move");
  }
}

void ProgramSession::clickAt(const QPoint& pixel) {
  movePointerTo(pixel);
  session.run({"xdotool", "click", "1"});
}

void ProgramSession::pressKeys(const std::vector<std::string>& keys) {
  std::vector<std::string> command{"xdotool", "key", "--clearmodifiers"};
  command.insert(command.end(), keys.begin(), keys.end());
  session.run(command);
}

void ProgramSession::typeText(const std::string& text) {
  session.run({"xdotool", "type", "--clearmodifiers", text});
}

bool ProgramSession::openMenu() {
  const std::optional<WindowProbe> item = windows().statusItem();
  const std::optional<QRect> frame = item ? item->geometry() : std::nullopt;
  if (!frame) {
    return false;
  }
  clickAt(frame->center());
  if (!waitFor([this] { return windows().popup().has_value(); })) {
    return false;
  }
  // It has the keyboard and the pointer once it answers to them: the row under the pointer is highlighted.
  movePointerTo(menuRow(0));
  const QPoint leftEdge(menuFrame().left() + 5, 0);
  return waitFor([&] {
    const auto color = [&](const QPoint& place) { return screenColor(connection(), {leftEdge.x(), place.y()}); };
    return color(menuRow(0)) != color(menuRow(1)) && color(menuRow(1)) == color(quitCommand());
  });
}

bool ProgramSession::menuCloses() {
  return waitFor([this] { return !isMenuOpen(); });
}

QRect ProgramSession::menuFrame() {
  const std::optional<WindowProbe> menu = windows().popup();
  return menu ? menu->geometry().value_or(QRect()) : QRect();
}

QPoint ProgramSession::menuRow(int row) {
  const QRect menu = menuFrame();
  return {menu.left() + 60, menu.top() + 1 + row * rowHeight + rowHeight / 2};
}

QPoint ProgramSession::pencilOfMenuRow(int row) {
  return {menuFrame().right() - 20, menuRow(row).y()};
}

void ProgramSession::editMenuRow(int row) {
  // The pencil comes when the pointer enters the row.
  movePointerTo(menuRow(row == 0 ? 1 : 0));
  movePointerTo(menuRow(row));
  clickAt(pencilOfMenuRow(row));
}

QPoint ProgramSession::preferencesCommand(int rows) {
  // Two commands, each below a separator, follow the rows.
  const QRect menu = menuFrame();
  const int firstBelow = menu.top() + 1 + rows * rowHeight;
  return {menu.left() + 60, firstBelow + (menu.bottom() - firstBelow) * 3 / 10};
}

QPoint ProgramSession::quitCommand() {
  return {menuFrame().left() + 60, menuFrame().bottom() - rowHeight / 2};
}

QColor defaultColorOf(int desktop) {
  static const std::array<QColor, 4> colors = {QColor(0xFF, 0xB5, 0xC2), QColor(0xB0, 0xD4, 0xFF),
                                               QColor(0xB8, 0xF5, 0xB8), QColor(0xFF, 0xD9, 0x99)};
  return colors.at(static_cast<std::size_t>(desktop));
}

}  // namespace roomlattice::tests
