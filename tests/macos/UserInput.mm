#include "tests/macos/UserInput.h"

#import <AppKit/AppKit.h>
#import <dispatch/dispatch.h>
#include <xcb/shape.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cctype>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "tests/macos/MainLoop.h"

namespace roomlattice::gnustep {
namespace {

using namespace std::chrono_literals;

// GNUstep takes a click that is shorter for none.
constexpr auto pressTime = 120ms;

constexpr std::uint32_t returnSymbol = 0xff0d;
constexpr std::uint8_t leftButton = 1;

}  // namespace

class UserInput::Connection {
 public:
  Connection() : connection_(xcb_connect(nullptr, nullptr)) {
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    screen_ = xcb_setup_roots_iterator(setup).data;
    firstKey_ = setup->min_keycode;
    const auto cookie = xcb_get_keyboard_mapping(
        connection_, setup->min_keycode, static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1));
    mapping_ = xcb_get_keyboard_mapping_reply(connection_, cookie, nullptr);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    std::free(mapping_);
    xcb_disconnect(connection_);
  }

  void move(NSPoint place) {
    const auto x = static_cast<std::int16_t>(place.x);
    const auto y = static_cast<std::int16_t>(screen_->height_in_pixels - place.y);
    xcb_test_fake_input(connection_, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, screen_->root, x, y, 0);
    xcb_flush(connection_);
  }

  void send(std::uint8_t type, std::uint8_t detail) {
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(connection_);
  }

  /// Lets the pointer through a window and through the frame it stands in.
  void letThrough(xcb_window_t window) {
    while (window != screen_->root && window != XCB_NONE) {
      xcb_shape_rectangles(connection_, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0,
                           0, nullptr);
      xcb_query_tree_reply_t* tree = xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr);
      window = tree == nullptr ? XCB_NONE : tree->parent;
      std::free(tree);
    }
  }

  /// The key that gives a symbol without modifiers; 0 for none.
  std::uint8_t key(std::uint32_t symbol) const {
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping_);
    const int count = xcb_get_keyboard_mapping_keysyms_length(mapping_);
    for (int i = 0; i < count; i += mapping_->keysyms_per_keycode) {
      if (symbols[i] == symbol) {
        return static_cast<std::uint8_t>(firstKey_ + i / mapping_->keysyms_per_keycode);
      }
    }
    return 0;
  }

 private:
  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
  xcb_get_keyboard_mapping_reply_t* mapping_ = nullptr;
  std::uint8_t firstKey_ = 0;
};

namespace {

/// Presses and releases while the main loop is served. A control that is pressed serves the loop itself until the
/// release, which therefore comes from the main queue.
template <class Send>
void press(const Send& send, std::uint8_t pressed, std::uint8_t released, std::uint8_t detail) {
  const auto isReleased = std::make_shared<bool>(false);
  send(pressed, detail);
  const auto delay = std::chrono::nanoseconds(pressTime).count();
  dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay), dispatch_get_main_queue(), ^{
    send(released, detail);
    *isReleased = true;
  });
  tests::runUntil([&] { return *isReleased; });
  tests::runFor(pressTime);
}

/// GNUstep's windows get the pointer's events even when they are to ignore them.
std::vector<xcb_window_t> windowsToIgnore() {
  std::vector<xcb_window_t> found;
  for (NSWindow* window in [NSApp windows]) {
    if ([window ignoresMouseEvents] && [window isVisible]) {
      found.push_back(static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([window windowRef])));
    }
  }
  return found;
}

}  // namespace

UserInput::UserInput() : connection_(std::make_unique<Connection>()) {}

UserInput::~UserInput() = default;

void UserInput::moveTo(NSPoint place) {
  for (const xcb_window_t window : windowsToIgnore()) {
    connection_->letThrough(window);
  }
  connection_->move(NSMakePoint(place.x + 1.0, place.y));
  tests::runFor(pressTime);
  connection_->move(place);
  tests::runFor(pressTime);
}

void UserInput::click(NSPoint place) {
  moveTo(place);
  const auto send = [this](std::uint8_t type, std::uint8_t detail) { connection_->send(type, detail); };
  press(send, XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE, leftButton);
}

void UserInput::type(std::string_view text) {
  const auto send = [this](std::uint8_t type, std::uint8_t detail) { connection_->send(type, detail); };
  constexpr std::uint32_t shiftSymbol = 0xffe1;
  for (const char letter : text) {
    const bool isUpper = std::isupper(static_cast<unsigned char>(letter)) != 0;
    if (isUpper) {
      send(XCB_KEY_PRESS, connection_->key(shiftSymbol));
    }
    const auto symbol = static_cast<std::uint32_t>(std::tolower(static_cast<unsigned char>(letter)));
    press(send, XCB_KEY_PRESS, XCB_KEY_RELEASE, connection_->key(symbol));
    if (isUpper) {
      send(XCB_KEY_RELEASE, connection_->key(shiftSymbol));
    }
  }
}

void UserInput::pressReturn() {
  const auto send = [this](std::uint8_t type, std::uint8_t detail) { connection_->send(type, detail); };
  press(send, XCB_KEY_PRESS, XCB_KEY_RELEASE, connection_->key(returnSymbol));
}

}  // namespace roomlattice::gnustep
