#include "platform/NativePlatform.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/control/ControlNames.h"
#include "tests/conformance/Backend.h"
#include "tests/x11/session/X11Session.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QWidget>
#include <QWindow>
#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <variant>

namespace roomlattice::tests {
namespace {

/// The status item, which floats where no panel has a place for it; null while there is none.
QWidget* statusItem() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (qobject_cast<QPushButton*>(widget) != nullptr && widget->isVisible()) {
      return widget;
    }
  }
  return nullptr;
}

class X11Backend final : public Backend {
 public:
  X11Backend() {
    auto made = platform::makeNativePlatform(count_, arguments_.data());
    platform_ = std::move(std::get<std::unique_ptr<platform::Platform>>(made));
    other_.emplace(platform::linux::MessageBus::Kind::Session);
  }

  /// A program has its event loop until it ends: what was to be deleted in that is.
  ~X11Backend() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  X11Backend(const X11Backend&) = delete;
  X11Backend& operator=(const X11Backend&) = delete;

  platform::Platform& platform() override { return *platform_; }
  bool runUntil(const std::function<bool()>& condition) override { return waitFor(condition); }
  void runFor(std::chrono::milliseconds duration) override {
    static_cast<void>(waitFor([] { return false; }, duration));
  }

  void openMenu() override {
    QWidget* item = nullptr;
    ASSERT_TRUE(waitFor([&] { return (item = statusItem()) != nullptr; }));
    const QPoint place = item->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, place, item->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(item, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, item->mapToGlobal(place), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(item, &release);
  }
  void closeMenu() override { QApplication::activePopupWidget()->close(); }
  bool isMenuOpen() override { return QApplication::activePopupWidget() != nullptr; }

  void waitForKeyboard() override {
    // The window manager tells so once it is done with it.
    EXPECT_TRUE(waitFor([this] {
      const QWindow* window = QGuiApplication::focusWindow();
      return window != nullptr && session_.activeWindow() == static_cast<xcb_window_t>(window->winId());
    }));
  }

  void pressReturn() override {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* shown = popup != nullptr ? popup : statusItem();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(shown->windowHandle(), &press);
  }

  void askForSwitch(const std::string& desktop) override {
    other_->send({.service = platform::linux::controlName,
                  .path = platform::linux::controlPath,
                  .interface = platform::linux::controlInterface,
                  .method = "SwitchTo",
                  .arguments = {desktop},
                  .activation = platform::linux::BusCall::Activation::Never});
  }

 private:
  X11Session session_;
  std::string name_ = "roomlattice-test";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::unique_ptr<platform::Platform> platform_;
  // Of another program; made once the toolkit is there.
  std::optional<platform::linux::MessageBus> other_;
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<X11Backend>();
}

std::string_view backendName() {
  return "x11";
}

}  // namespace roomlattice::tests
