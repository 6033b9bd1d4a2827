#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/statusitem/FloatingItemFixture.h"

#include <QApplication>
#include <QWindow>
#include <optional>
#include <utility>

namespace roomlattice::tests {
namespace {

using platform::StatusItem;
using platform::x11::NativeWindow;
using platform::x11::Strut;

/// Tells a window that it has been moved, which is not so.
void misinform(platform::x11::X11Connection& connection, xcb_window_t window, const QRect& geometry) {
  xcb_configure_notify_event_t notice{};
  notice.response_type = XCB_CONFIGURE_NOTIFY;
  notice.event = window;
  notice.window = window;
  notice.x = static_cast<std::int16_t>(geometry.x());
  notice.y = static_cast<std::int16_t>(geometry.y());
  notice.width = static_cast<std::uint16_t>(geometry.width());
  notice.height = static_cast<std::uint16_t>(geometry.height());
  xcb_send_event(connection.raw(), 0, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY, reinterpret_cast<const char*>(&notice));
  xcb_flush(connection.raw());
}

/// A panel of another program along the top edge of the screen.
class Panel {
 public:
  Panel(platform::x11::X11Connection& connection, int width, std::uint32_t depth) {
    widget_.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    widget_.setGeometry(0, 0, width, static_cast<int>(depth));
    NativeWindow window(connection, widget_);
    window.writeHints({.types = {connection.ewmh()->_NET_WM_WINDOW_TYPE_DOCK}, .desktop = platform::x11::allDesktops});
    window.setStrut(
        Strut{.edge = Strut::Edge::Top, .depth = depth, .startX = 0, .endX = static_cast<std::uint32_t>(width - 1)});
    widget_.show();
  }

 private:
  QWidget widget_;
};

/// To a pixel or two, as places are stored as parts of an edge.
bool isNear(const QRect& frame, const QRect& wanted) {
  return frame.size() == wanted.size() && (frame.topLeft() - wanted.topLeft()).manhattanLength() <= 3;
}

class FloatingItemUnderTest : public FloatingItemFixture, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  FloatingItemUnderTest() : FloatingItemFixture({.windowManager = GetParam()}) {}
};

TEST_P(FloatingItemUnderTest, StandsInTheMiddleOfTheTopAsWideAsItsTitle) {
  show(redTitle(" Mail "));
  EXPECT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
}

TEST_P(FloatingItemUnderTest, KeepsToTheMiddleWhenItsTitleChanges) {
  StatusItem& item = show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  item.button()->setContent(redTitle(" Letters and parcels "));
  EXPECT_TRUE(standsInTheMiddle(titleWidth(" Letters and parcels ")));
}

TEST_P(FloatingItemUnderTest, IsADockOnAllDesktopsOutsideOfTaskbarsAndPagers) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  EXPECT_EQ(probe().types(), std::vector<std::string>{"_NET_WM_WINDOW_TYPE_DOCK"});
  EXPECT_TRUE(waitFor([this] { return probe().desktop() == platform::x11::allDesktops; }));
  EXPECT_TRUE(waitFor([this] { return probe().hasState("ABOVE"); }));
  EXPECT_TRUE(waitFor([this] { return probe().hasState("SKIP_TASKBAR") && probe().hasState("SKIP_PAGER"); }));
}

TEST_P(FloatingItemUnderTest, LeavesTheKeyboardToTheApplicationThatHasIt) {
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  click();
  EXPECT_TRUE(other.hasFocus());
}

TEST_P(FloatingItemUnderTest, LiesOverAMaximizedWindow) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  other.maximize();
  ASSERT_TRUE(waitFor([&] { return WindowProbe(ui_.connection(), other.id()).geometry()->width() > 1200; }));
  EXPECT_TRUE(waitFor([this] { return similar(colorAtTheEnd(titleWidth(" Mail ")), red); }));
}

TEST_P(FloatingItemUnderTest, LiesBelowAWindowThatFillsTheScreen) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  other.fillScreen();
  EXPECT_TRUE(waitFor([this] { return similar(colorAtTheEnd(titleWidth(" Mail ")), Qt::blue); }));
  ui_.session.run({"wmctrl", "-i", "-r", std::to_string(other.id()), "-b", "remove,fullscreen"});
  EXPECT_TRUE(waitFor([this] { return similar(colorAtTheEnd(titleWidth(" Mail ")), red); }));
}

TEST_P(FloatingItemUnderTest, StaysOnTheScreenWhenTheDesktopChanges) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(waitFor([&] { return similar(colorAtTheEnd(width), red); }));
  ui_.session.run({"wmctrl", "-s", "2"});
  ASSERT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 2; }));
  EXPECT_TRUE(waitFor([&] { return probe().isViewable() && similar(colorAtTheEnd(width), red); }));
}

TEST_P(FloatingItemUnderTest, StaysWhenTheWindowManagerIsToldToCloseIt) {
  StatusItem& item = show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"wmctrl", "-i", "-c", std::to_string(probe().id())});
  floating()->close();
  // The window manager has had its turn when it has given the item another size.
  item.button()->setContent(redTitle(" Letters "));
  EXPECT_TRUE(standsInTheMiddle(titleWidth(" Letters ")));
  EXPECT_TRUE(probe().isViewable());
}

TEST_P(FloatingItemUnderTest, GoesWhereItIsDraggedAndStaysThere) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(standsInTheMiddle(width));
  drag({screenWidth / 2, 12}, {screenWidth - 20, 400});
  const QRect wanted(screenWidth - width, 400 - height / 2, width, height);
  EXPECT_TRUE(waitFor([&] { return isNear(probe().geometry().value_or(QRect()), wanted); }));
  EXPECT_TRUE(waitFor([] { return QApplication::mouseButtons() == Qt::NoButton; }));
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  item_.reset();
  show(redTitle(" Mail "));
  EXPECT_TRUE(waitFor([&] { return isNear(probe().geometry().value_or(QRect()), wanted); }));
}

TEST_P(FloatingItemUnderTest, KeepsOutOfWhatAPanelReserves) {
  const Panel panel(ui_.connection(), screenWidth, 30);
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  EXPECT_TRUE(comesToStandAt(middleOfTheTop(width).translated(0, 30)));
}

TEST_P(FloatingItemUnderTest, MakesWayForAPanelThatComes) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(standsInTheMiddle(width));
  std::optional<Panel> panel(std::in_place, ui_.connection(), screenWidth, 30);
  EXPECT_TRUE(comesToStandAt(middleOfTheTop(width).translated(0, 30)));
  panel.reset();
  EXPECT_TRUE(standsInTheMiddle(width));
}

TEST_P(FloatingItemUnderTest, ReservesItsEdgeBesideThePanelsWhenAskedTo) {
  const Panel panel(ui_.connection(), screenWidth, 30);
  ui_.defaults.set("StatusItem.KeepEdgeFree", true);
  show(redTitle(" Mail "));
  ASSERT_TRUE(comesToStandAt(middleOfTheTop(titleWidth(" Mail ")).translated(0, 30)));
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  other.maximize();
  EXPECT_TRUE(waitFor([&] {
    const QRect frame = WindowProbe(ui_.connection(), other.id()).geometry().value();
    return frame.width() > 1200 && frame.top() >= 30 + height;
  }));
}

TEST_P(FloatingItemUnderTest, OpensItsMenuBelowItWhereverTheToolkitBelievesItToBe) {
  platform::Menu menu;
  menu.items.push_back(platform::CommandItem{.title = "Quit", .action = [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(standsInTheMiddle(width));
  // The window manager may have some news of its own under way.
  ASSERT_TRUE(waitFor([&] {
    misinform(ui_.connection(), probe().id(), {0, 0, width, height});
    return floating()->windowHandle()->position() == QPoint(0, 0);
  }));
  click();
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  const QRect opened = QApplication::activePopupWidget()->geometry();
  EXPECT_EQ(opened.top(), height);
  EXPECT_EQ(opened.left() + opened.width(), middleOfTheTop(width).left() + width);
}

INSTANTIATE_TEST_SUITE_P(OnEvery, FloatingItemUnderTest, everyWindowManager(), ::testing::PrintToStringParamName());

class FloatingItemUnderI3Test : public FloatingItemFixture {
 protected:
  FloatingItemUnderI3Test() : FloatingItemFixture({.windowManager = WindowManagerKind::I3}) {}
};

TEST_F(FloatingItemUnderI3Test, IsDrawnAtTheRightEndOfAStripWhateverItsTitle) {
  StatusItem& item = show(redTitle(" Mail "));
  EXPECT_TRUE(waitFor([this] { return probe().geometry() == QRect(0, 0, screenWidth, height); }));
  for (const char* title : {" Letters and parcels ", " Mail ", " Play "}) {
    item.button()->setContent(redTitle(title));
    const int left = screenWidth - titleWidth(title);
    EXPECT_TRUE(waitFor([&] { return similar(pixel(left + 3, 12), red) && !similar(pixel(left - 3, 12), red); }))
        << title;
    EXPECT_TRUE(similar(pixel(screenWidth - 4, 12), red));
  }
  EXPECT_FALSE(similar(pixel(3, 12), red));
}

TEST_F(FloatingItemUnderI3Test, OpensItsMenuBelowItAndNotFromTheRestOfTheStrip) {
  platform::Menu menu;
  menu.items.emplace_back(platform::CommandItem{"Command", "", [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  ASSERT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "600", "12", "click", "1"});
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth - 10), "12", "click", "1"});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  EXPECT_EQ(QApplication::activePopupWidget()->geometry().right(), screenWidth - 1);
}

}  // namespace
}  // namespace roomlattice::tests
