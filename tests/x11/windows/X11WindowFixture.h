#pragma once

#include "platform/x11/desktops/X11WindowServer.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/UserInterfaceFixture.h"
#include "tests/x11/session/WindowProbe.h"

#include <QGuiApplication>
#include <QTimer>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>

namespace roomlattice::tests {

/// A window as a label is one, 480 by 200 points in the middle of a blue screen of 1280 by 800.
class X11WindowTest : public ::testing::Test {
 protected:
  static constexpr platform::Rect labelFrame{{400.0, 300.0}, {480.0, 200.0}};
  static constexpr QRect labelPixels{400, 300, 480, 200};  // the same seen from the top
  static constexpr QPoint labelCenter{640, 400};

  /// A plate of one colour.
  class Plate final : public platform::View {
   public:
    explicit Plate(const platform::Color& color) : color_(color) { setFrame({{}, labelFrame.size}); }
    platform::ViewContent content() const override { return {.background = color_, .cornerRadius = 40.0}; }

   private:
    platform::Color color_;
  };

  explicit X11WindowTest(const SessionOptions& options = {},
                         std::chrono::milliseconds longestUnseen = std::chrono::hours(1))
      : ui_(options, longestUnseen) {
    ui_.session.run({"hsetroot", "-solid", "#0000ff"});
  }

  std::unique_ptr<platform::Window> make(platform::OverlayWindowOptions options,
                                         const platform::Color& color = {1.0, 0.0, 0.0}) {
    options.frame = labelFrame;
    auto window = ui_.userInterface.createOverlayWindow(options);
    window->setContentView(std::make_unique<Plate>(color));
    return window;
  }

  /// A window attached to a desktop as the program does it: ordered in first, in the same turn.
  std::unique_ptr<platform::Window> makeOn(std::size_t desktop, double alpha = 1.0) {
    auto window = make({.alpha = alpha});
    window->orderFront();
    server_.addWindowToSpace(window->number(), spaceAt(desktop));
    return window;
  }

  platform::SpaceID spaceAt(std::size_t index) const { return ui_.desktops.list().desktops.at(index).id; }

  WindowProbe probe(const platform::Window& window) {
    return {ui_.connection(), static_cast<xcb_window_t>(window.number())};
  }

  bool appears(const platform::Window& window) {
    return waitFor([&] { return probe(window).isViewable(); });
  }

  QColor centerColor() { return screenColor(ui_.connection(), labelCenter); }
  bool centerBecomes(const QColor& color) {
    return waitFor([&] { return similar(centerColor(), color); });
  }

  void switchTo(int desktop) {
    ui_.session.run({"wmctrl", "-s", std::to_string(desktop)});
    ASSERT_TRUE(waitFor([&] { return ui_.session.currentDesktop() == desktop; }));
  }

  /// Everything that was sent has had its effect.
  void settle(std::chrono::milliseconds time = std::chrono::milliseconds(200)) {
    QGuiApplication::sync();
    bool done = false;
    QTimer::singleShot(time, [&done] { done = true; });
    ASSERT_TRUE(waitFor([&done] { return done; }));
  }

  UserInterfaceSession ui_;
  platform::x11::X11WindowServer server_{ui_.connection().screenNumber(), ui_.desktops, ui_.attachments};
};

}  // namespace roomlattice::tests
