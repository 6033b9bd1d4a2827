#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

class QWidget;

namespace roomlattice::platform::x11 {

/// The value of _NET_WM_DESKTOP that stands for all desktops (EWMH).
inline constexpr std::uint32_t allDesktops = 0xFFFFFFFF;

/// What a window asks of the window manager when it is mapped (EWMH).
struct WindowHints {
  std::vector<xcb_atom_t> types;   // _NET_WM_WINDOW_TYPE, the best one first
  std::vector<xcb_atom_t> states;  // _NET_WM_STATE
  std::uint32_t desktop = 0;       // _NET_WM_DESKTOP
};

/// A reservation of an edge of the root window, in pixels: how deep, and from where to where.
struct Strut {
  enum class Edge { Top, Bottom };

  Edge edge = Edge::Top;
  std::uint32_t depth = 0;
  std::uint32_t startX = 0;
  std::uint32_t endX = 0;

  bool operator==(const Strut&) const = default;
};

/// That by which the program's windows are drawn: requests of another one need not arrive in order with its own. There
/// must be a Qt application, with which it goes; one that does not run on X11 is fatal.
xcb_connection_t* toolkitConnection();

/// The X window of a top-level widget, which is marked as the program's, written to through the toolkit's own
/// connection, so that requests arrive in order with the toolkit's. The constructor waits for the server, and so does
/// the first use of an atom in the program; beside these only what says so.
class NativeWindow {
 public:
  /// Makes the widget's X window if there is none yet. Both must outlive this object.
  NativeWindow(X11Connection& connection, QWidget& widget);

  xcb_window_t id() const { return id_; }

  /// The toolkit's connection.
  xcb_connection_t* raw() const { return raw_; }

  /// Has the toolkit hear of nothing that happens to the window, which is for those to hear who need it, through the
  /// program's connection: the toolkit is woken in a thread of its own for each event, and again in its main thread.
  /// Messages of the window manager still reach it.
  void deafenToolkit();

  /// Tells the toolkit where the window is now (ICCCM 4.1.5), to be called when that has changed; its size is that of
  /// `change`. Waits for the server.
  void tellPlace(const xcb_configure_notify_event_t& change);

  /// Says what kind of window it is (EWMH), the best one first; to be called before it is mapped.
  void setTypes(const std::vector<xcb_atom_t>& types);

  /// Puts the hints on a window that is not mapped; to be repeated before each mapping, as window managers clear them
  /// when a window is withdrawn.
  void writeHints(const WindowHints& hints);

  /// Makes the window a group of its own (ICCCM) that no window manager gives the keyboard; to be called before it is
  /// mapped. Some window managers move what belongs to the same group as the window that is being activated to that
  /// window's desktop.
  void refuseKeyboard();

  /// Asks the window manager to move a mapped window to `desktop`.
  void requestDesktop(std::uint32_t desktop);

  /// Asks the window manager to give a mapped window the keyboard, as the user would.
  void requestActivation();

  /// Asks the window manager to remove a state of a mapped window.
  void requestNoState(xcb_atom_t state);

  /// Whether _NET_WM_STATE now holds `state`. Waits for the server.
  bool hasState(xcb_atom_t state) const;

  /// Whether a window manager has it in its care (ICCCM's WM_STATE). Waits for the server.
  bool isManaged() const;

  /// Asks for it to be shown, as the toolkit does not for what it has asked for already.
  void map();

  /// _NET_WM_DESKTOP, or nothing while there is none. Waits for the server.
  std::optional<std::uint32_t> desktop() const;

  /// Sets _NET_WM_WINDOW_OPACITY, which compositors and window managers read; 0–1.
  void setOpacity(double opacity) { setOpacity(id_, opacity); }

  /// The same for a frame that a window manager has put around it.
  void setOpacity(xcb_window_t frame, double opacity);

  /// Cuts the window to these rectangles, in pixels.
  void setBoundingShape(const std::vector<xcb_rectangle_t>& rectangles);
  void clearBoundingShape();

  /// Lets clicks through the window and all that a window manager has put around it. The toolkit does so for the
  /// window alone, and most frames keep taking clicks. Waits for the server.
  void passClicksThrough();

  /// Reserves a part of the top or the bottom of the root window (EWMH), or nothing any longer.
  void setStrut(const std::optional<Strut>& strut);

  /// Sends what was asked for; the toolkit would do so only when it next draws or waits.
  void flush();

 private:
  void writeAtoms(xcb_atom_t property, const std::vector<xcb_atom_t>& atoms);
  void send(xcb_atom_t type, const std::array<std::uint32_t, 5>& data);

  X11Connection& connection_;
  xcb_connection_t* raw_;
  xcb_window_t id_;
};

}  // namespace roomlattice::platform::x11
