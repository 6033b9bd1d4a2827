#include "tests/x11/session/WindowState.h"

#include <cstring>
#include <limits>

namespace roomlattice::tests {
namespace {

using platform::x11::replyTo;
using platform::x11::X11Connection;

// What a window manager puts around a client is not deeper.
constexpr int deepestLevel = 4;

std::vector<xcb_window_t> childrenOf(X11Connection& connection, const std::vector<xcb_window_t>& parents) {
  std::vector<xcb_query_tree_cookie_t> cookies;
  for (const xcb_window_t parent : parents) {
    cookies.push_back(xcb_query_tree(connection.raw(), parent));
  }
  std::vector<xcb_window_t> children;
  for (const xcb_query_tree_cookie_t cookie : cookies) {
    if (const auto tree = replyTo(connection.raw(), cookie, xcb_query_tree_reply)) {
      const xcb_window_t* first = xcb_query_tree_children(tree.get());
      children.insert(children.end(), first, first + xcb_query_tree_children_length(tree.get()));
    }
  }
  return children;
}

/// A property of numbers, asked for when this is made.
class AskedNumbers {
 public:
  AskedNumbers(X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
      : connection_(connection.raw()), cookie_(xcb_get_property(connection_, 0, window, property, type, 0, enough)) {}

  /// Waits for the answer; empty when there is no such property. To be called once.
  std::vector<std::uint32_t> take() const {
    const auto reply = replyTo(connection_, cookie_, xcb_get_property_reply);
    if (reply == nullptr || reply->format != 32) {
      return {};
    }
    std::vector<std::uint32_t> numbers(reply->value_len);
    if (!numbers.empty()) {
      std::memcpy(numbers.data(), xcb_get_property_value(reply.get()), numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
  }

  /// The same for a property of one.
  std::optional<std::uint32_t> takeOne() const {
    const std::vector<std::uint32_t> numbers = take();
    return numbers.empty() ? std::nullopt : std::optional(numbers.front());
  }

 private:
  static constexpr std::uint32_t enough = 64;

  xcb_connection_t* connection_;
  xcb_get_property_cookie_t cookie_;
};

/// All questions about a window, asked when this is made.
class AskedWindow {
 public:
  AskedWindow(X11Connection& connection, xcb_window_t window)
      : connection_(connection.raw()),
        window_(window),
        attributes_(xcb_get_window_attributes(connection_, window)),
        process_(connection, window, connection.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL),
        types_(connection, window, connection.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM),
        desktop_(connection, window, connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL),
        opacity_(connection, window, connection.atom("_NET_WM_WINDOW_OPACITY"), XCB_ATOM_CARDINAL) {}

  /// Waits for the answers. To be called once.
  WindowState take() const {
    constexpr std::uint32_t opaque = std::numeric_limits<std::uint32_t>::max();
    const auto attributes = replyTo(connection_, attributes_, xcb_get_window_attributes_reply);
    return {.id = window_,
            .process = process_.takeOne(),
            .types = types_.take(),
            .desktop = desktop_.takeOne(),
            .opacity = static_cast<double>(opacity_.takeOne().value_or(opaque)) / opaque,
            .isViewable = attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE,
            .isOverrideRedirect = attributes != nullptr && attributes->override_redirect != 0};
  }

 private:
  xcb_connection_t* connection_;
  xcb_window_t window_;
  xcb_get_window_attributes_cookie_t attributes_;
  AskedNumbers process_;
  AskedNumbers types_;
  AskedNumbers desktop_;
  AskedNumbers opacity_;
};

}  // namespace

std::vector<WindowState> statesOf(X11Connection& connection, const std::vector<xcb_window_t>& windows) {
  std::vector<AskedWindow> asked;
  for (const xcb_window_t window : windows) {
    asked.emplace_back(connection, window);
  }
  std::vector<WindowState> states;
  for (const AskedWindow& window : asked) {
    states.push_back(window.take());
  }
  return states;
}

std::vector<WindowState> windowsOfScreen(X11Connection& connection) {
  std::vector<xcb_window_t> all;
  std::vector<xcb_window_t> level{connection.root()};
  for (int depth = 1; depth <= deepestLevel; ++depth) {
    level = childrenOf(connection, level);
    all.insert(all.end(), level.begin(), level.end());
  }
  return statesOf(connection, all);
}

}  // namespace roomlattice::tests
