#include "platform/x11/preferences/X11TabbedWindow.h"

#include "platform/x11/drawing/ProgramIcon.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/preferences/NativeControls.h"

#include <QComboBox>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

constexpr double margin = 20.0;

constexpr Qt::WindowFlags titledAndClosable =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

/// Turning the wheel over a page scrolls it, whatever control is under the pointer.
class WheelToPage final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Wheel) {
      return false;
    }
    event->ignore();
    return true;
  }
};

/// Closes the window by the key that no control in it has a use for. As a shortcut it would do so also while the
/// choices of a pop-up are open.
class EscapeCloses final : public QObject {
 public:
  explicit EscapeCloses(QWidget* window) : QObject(window), window_(*window) {}

  bool eventFilter(QObject*, QEvent* event) override {
    const bool escapes =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel);
    return escapes && window_.close();
  }

 private:
  QWidget& window_;
};

/// Flags have to be there before the widget gets its X window.
QWidget& withFlags(QWidget& window) {
  window.setWindowFlags(titledAndClosable);
  return window;
}

/// The page's own size, or more where controls stand beyond its right or bottom edge.
Size neededSize(const TabPage& page) {
  double right = 0.0;
  double below = 0.0;
  for (const PlacedControl& placed : page.controls) {
    right = std::max(right, placed.frame.maxX() + margin);
    below = std::max(below, margin - placed.frame.minY());
  }
  return {right, page.size.height + std::max(below - margin, 0.0)};
}

/// The widget of a control at its place, in a page of that height.
QWidget* addControl(QWidget& page, const PlacedControl& placed, double pageHeight) {
  QWidget* widget = makeControl(placed.control).release();
  widget->setParent(&page);
  widget->setAccessibleName(toQt(placed.accessibilityLabel));
  widget->setGeometry(toQt(placed.frame, pageHeight).toAlignedRect());
  return widget;
}

void putAfter(QWidget& previous, QWidget& widget) {
  QWidget::setTabOrder(&previous, &widget);
  // Screen readers get the name of a pop-up from its label alone.
  if (auto* label = dynamic_cast<QLabel*>(&previous);
      label != nullptr && dynamic_cast<QComboBox*>(&widget) != nullptr) {
    label->setBuddy(&widget);
  }
}

QScrollArea* makeScrolling(QWidget* content) {
  auto* scrolling = new QScrollArea;
  scrolling->setFrameShape(QFrame::NoFrame);
  scrolling->setFocusPolicy(Qt::NoFocus);
  scrolling->setWidget(content);
  // Let the colour of the tabs through, which differs from that of windows in some styles.
  scrolling->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  return scrolling;
}

}  // namespace

X11TabbedWindow::X11TabbedWindow(const TabbedWindowModel& model, X11Connection& connection,
                                 const WindowManagerWatch& windowManager, const X11Desktops& desktops)
    : connection_(connection), desktops_(desktops), native_(connection, withFlags(window_)) {
  if (windowManager.traits().minimizesAllButToolbars) {
    const xcb_ewmh_connection_t& atoms = *connection_.ewmh();
    native_.setTypes({atoms._NET_WM_WINDOW_TYPE_TOOLBAR, atoms._NET_WM_WINDOW_TYPE_NORMAL});
  }
  window_.setWindowIcon(programIcon());
  window_.setWindowTitle(toQt(model.title));
  window_.setFixedSize(toQt(model.contentSize));
  auto* tabs = new QTabWidget(&window_);
  tabs->setGeometry(toQt(model.tabFrame, model.contentSize.height).toRect());
  for (const TabPage& page : model.pages) {
    addPage(*tabs, page);
  }
  followKeys(*tabs);
  auto* close = new QShortcut(QKeySequence::Close, &window_);
  QObject::connect(close, &QShortcut::activated, &window_, &QWidget::close);
  window_.installEventFilter(new EscapeCloses(&window_));
  center();
}

void X11TabbedWindow::addPage(QTabWidget& tabs, const TabPage& page) {
  auto* content = new QWidget;
  auto* wheelToPage = new WheelToPage(content);
  std::vector<QWidget*>& controls = controls_.emplace_back();
  for (const PlacedControl& placed : page.controls) {
    QWidget* widget = addControl(*content, placed, page.size.height);
    widget->installEventFilter(wheelToPage);
    if (!controls.empty()) {
      putAfter(*controls.back(), *widget);
    }
    controls.push_back(widget);
  }
  content->setFixedSize(toQt(neededSize(page)));
  QScrollArea* scrolling = makeScrolling(content);
  scrolling->setObjectName(toQt(page.identifier));
  tabs.addTab(scrolling, withoutShortcuts(toQt(page.label)));
}

void X11TabbedWindow::followKeys(QTabWidget& tabs) {
  // Pop-ups keep these keys from the tabs, which would know them.
  const auto turnPages = [this, &tabs](QKeySequence::StandardKey key, int pages) {
    auto* shortcut = new QShortcut(key, &window_);
    QObject::connect(shortcut, &QShortcut::activated, &tabs, [&tabs, pages] {
      tabs.setCurrentIndex((tabs.currentIndex() + tabs.count() + pages) % tabs.count());
    });
  };
  turnPages(QKeySequence::NextChild, 1);
  turnPages(QKeySequence::PreviousChild, -1);
}

void X11TabbedWindow::center() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    window_.move(screen->availableGeometry().center() - window_.rect().center());
  }
}

void X11TabbedWindow::bringToCurrentDesktop() {
  const std::optional<std::size_t> current = desktops_.list().current;
  if (!window_.isVisible() || !current) {
    return;
  }
  connection_.sendToRoot(static_cast<xcb_window_t>(window_.winId()), connection_.ewmh()->_NET_WM_DESKTOP,
                         {static_cast<std::uint32_t>(*current), sourceIsPager, 0, 0, 0});
  connection_.waitForServer();
}

void X11TabbedWindow::show() {
  // Before it is activated: many window managers would rather take the user to where it is.
  bringToCurrentDesktop();
  window_.show();
  window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
  window_.raise();
  window_.activateWindow();
}

void X11TabbedWindow::setText(ControlReference label, const std::string& text) {
  if (auto* widget = dynamic_cast<QLabel*>(controls_.at(label.page).at(label.control))) {
    widget->setText(singleLine(text));
  }
}

void X11TabbedWindow::setEnabled(ControlReference button, bool enabled) {
  QWidget* widget = controls_.at(button.page).at(button.control);
  if (!enabled && window_.focusWidget() == widget) {
    // Otherwise the toolkit passes the keyboard on to the next control for good.
    widget->clearFocus();
    awaitsFocus_ = widget;
  }
  widget->setEnabled(enabled);
  if (enabled && awaitsFocus_ == widget) {
    awaitsFocus_ = nullptr;
    if (window_.focusWidget() == nullptr) {
      widget->setFocus();
    }
  }
}

}  // namespace roomlattice::platform::x11
