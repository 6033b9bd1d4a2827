#include "platform/x11/statusitem/X11StatusItem.h"

#include "platform/x11/statusitem/StatusItemDrawing.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/UserInterfaceFixture.h"
#include "tests/x11/session/WindowProbe.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::FixedLength;
using platform::Font;
using platform::FontWeight;
using platform::Image;
using platform::SquareLength;
using platform::StatusButtonContent;
using platform::StatusItem;
using platform::StatusItemLength;
using platform::VariableLength;

constexpr int screenWidth = 1280;
constexpr int height = 24;
const QColor red(255, 0, 0);

StatusButtonContent redTitle(const std::string& text) {
  return {.title = {.text = text, .color = Color::black()}, .background = Color{1.0, 0.0, 0.0}, .cornerRadius = 3.0};
}

Image squareIcon() {
  Image image{.size = {16.0, 16.0}, .isTemplate = true};
  image.shapes.push_back({.bounds = {{}, {16.0, 16.0}}, .color = Color::black()});
  return image;
}

class X11StatusItemTest : public ::testing::Test {
 protected:
  explicit X11StatusItemTest(const SessionOptions& options = {}) : ui_(options) {}

  StatusItem& show(const StatusButtonContent& content, const StatusItemLength& length = VariableLength{}) {
    item_ = ui_.userInterface.createStatusItem(length);
    item_->button()->setContent(content);
    return *item_;
  }

  WindowProbe probe() {
    auto& window = dynamic_cast<QWidget&>(*item_);
    return {ui_.connection(), static_cast<xcb_window_t>(window.winId())};
  }

  bool comesToStandAt(const QRect& frame) {
    return waitFor([this, frame] { return probe().isViewable() && probe().geometry() == frame; });
  }

  bool standsRightWithWidth(int width) { return comesToStandAt({screenWidth - width, 0, width, height}); }

  int titleWidth(const std::string& text) {
    const Font font{.size = ui_.userInterface.systemFontSize(), .weight = FontWeight::Medium};
    return static_cast<int>(std::ceil(ui_.userInterface.measure(text, font).width));
  }

  QColor pixel(int x, int y) { return screenColor(ui_.connection(), {x, y}); }

  UserInterfaceSession ui_;
  std::unique_ptr<StatusItem> item_;
};

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

class X11StatusItemUnderTest : public X11StatusItemTest, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  X11StatusItemUnderTest() : X11StatusItemTest({.windowManager = GetParam()}) {}
};

TEST_P(X11StatusItemUnderTest, StandsAtTheTopRightAsWideAsItsTitle) {
  show(redTitle(" Mail "));
  EXPECT_TRUE(standsRightWithWidth(titleWidth(" Mail ")));
}

TEST_P(X11StatusItemUnderTest, KeepsToTheRightEdgeWhenItsTitleChanges) {
  StatusItem& item = show(redTitle(" Mail "));
  ASSERT_TRUE(standsRightWithWidth(titleWidth(" Mail ")));
  item.button()->setContent(redTitle(" Letters and parcels "));
  EXPECT_TRUE(standsRightWithWidth(titleWidth(" Letters and parcels ")));
}

TEST_P(X11StatusItemUnderTest, IsADockOnAllDesktopsOutsideOfTaskbarsAndPagers) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  EXPECT_EQ(probe().types(), std::vector<std::string>{"_NET_WM_WINDOW_TYPE_DOCK"});
  EXPECT_TRUE(waitFor([this] { return probe().desktop() == platform::x11::allDesktops; }));
  EXPECT_TRUE(waitFor([this] { return probe().hasState("ABOVE"); }));
  EXPECT_TRUE(waitFor([this] { return probe().hasState("SKIP_TASKBAR") && probe().hasState("SKIP_PAGER"); }));
}

TEST_P(X11StatusItemUnderTest, LeavesTheKeyboardToTheApplicationThatHasIt) {
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsRightWithWidth(titleWidth(" Mail ")));
  ui_.session.run({"xdotool", "mousemove", "--sync", "1270", "12", "click", "1"});
  EXPECT_TRUE(other.hasFocus());
}

TEST_P(X11StatusItemUnderTest, LiesOverAMaximizedWindow) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsRightWithWidth(titleWidth(" Mail ")));
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  other.maximize();
  ASSERT_TRUE(waitFor([&] { return WindowProbe(ui_.connection(), other.id()).geometry()->width() > 1200; }));
  EXPECT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
}

TEST_P(X11StatusItemUnderTest, StaysOnTheScreenWhenTheDesktopChanges) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
  ui_.session.run({"wmctrl", "-s", "2"});
  ASSERT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 2; }));
  EXPECT_TRUE(waitFor([this] { return probe().isViewable() && similar(pixel(screenWidth - 4, 12), red); }));
}

TEST_P(X11StatusItemUnderTest, OpensItsMenuBelowItWhereverTheToolkitBelievesItToBe) {
  platform::Menu menu;
  menu.items.push_back(platform::CommandItem{.title = "Quit", .action = [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(standsRightWithWidth(width));
  // The window manager may have some news of its own under way.
  ASSERT_TRUE(waitFor([&] {
    misinform(ui_.connection(), probe().id(), {0, 0, width, height});
    return dynamic_cast<QWidget&>(*item_).windowHandle()->position() == QPoint(0, 0);
  }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "1270", "12", "click", "1"});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  const QRect opened = QApplication::activePopupWidget()->geometry();
  EXPECT_EQ(opened.top(), height);
  EXPECT_EQ(opened.left() + opened.width(), screenWidth);
}

INSTANTIATE_TEST_SUITE_P(OnEvery, X11StatusItemUnderTest, everyWindowManager(), ::testing::PrintToStringParamName());

class X11StatusItemUnderI3Test : public X11StatusItemTest {
 protected:
  X11StatusItemUnderI3Test() : X11StatusItemTest({.windowManager = WindowManagerKind::I3}) {}
};

TEST_F(X11StatusItemUnderI3Test, IsDrawnAtTheRightEndOfAStripWhateverItsTitle) {
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

TEST_F(X11StatusItemUnderI3Test, OpensItsMenuBelowItAndNotFromTheRestOfTheStrip) {
  platform::Menu menu;
  menu.items.emplace_back(platform::CommandItem{"Command", "", [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  ASSERT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "600", "12", "click", "1"});
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth - 10), "12", "click", "1"});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  EXPECT_EQ(QApplication::activePopupWidget()->geometry().right(), screenWidth - 1);
}

TEST_F(X11StatusItemTest, IsAsWideAsHighInSquareLength) {
  show({.image = squareIcon()}, SquareLength{});
  EXPECT_TRUE(standsRightWithWidth(height));
}

TEST_F(X11StatusItemTest, HasExactlyTheFixedWidthWhateverItsTitle) {
  StatusItem& item = show(redTitle(" M "), FixedLength{140.0});
  EXPECT_TRUE(standsRightWithWidth(140));
  item.button()->setContent(redTitle(" A title that is a good deal longer than it has room for "));
  item.setLength(FixedLength{141.0});
  EXPECT_TRUE(standsRightWithWidth(141));
}

TEST_F(X11StatusItemTest, IsNeverWiderThanTheScreen) {
  show(redTitle(std::string(1000, 'W')));
  EXPECT_TRUE(standsRightWithWidth(screenWidth));
}

TEST_F(X11StatusItemTest, GoesToTheCornerOfAResizedScreen) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsRightWithWidth(titleWidth(" Mail ")));
  ui_.session.run({"xrandr", "--newmode", "smaller", "36", "800", "824", "896", "1024", "600", "601", "603", "625"});
  ui_.session.run({"xrandr", "--addmode", "screen", "smaller"});
  ui_.session.run({"xrandr", "--output", "screen", "--mode", "smaller"});
  const int width = titleWidth(" Mail ");
  EXPECT_TRUE(comesToStandAt({800 - width, 0, width, height}));
}

TEST_F(X11StatusItemTest, DrawsTheBackgroundWithinTheBarAndTheTitleInItsColor) {
  show({.title = {.text = " Mail ", .color = Color{0.0, 0.0, 1.0}}, .background = Color{1.0, 0.0, 0.0}});
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
  const QImage image = screenImage(ui_.connection(), {screenWidth - width, 0, width, height});
  const QColor backdrop = image.pixelColor(width / 2, 0);
  EXPECT_FALSE(similar(backdrop, red));
  EXPECT_EQ(image.pixelColor(width / 2, height - 1), backdrop);
  EXPECT_GT(countPixels(image, Qt::blue, 40), 10);
}

TEST_F(X11StatusItemTest, DrawsATemplateImageInTheBarsTextColor) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  ASSERT_TRUE(standsRightWithWidth(height));
  // Light without any setting: dark text. The icon has its whole 16 points, with sharp edges.
  const auto darkPixels = [this] {
    return countPixels(screenImage(ui_.connection(), {screenWidth - height, 0, height, height}), QColor(28, 28, 30));
  };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 16 * 16; })) << darkPixels();
}

TEST_F(X11StatusItemTest, LeavesTheScreenWithItsObject) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return similar(pixel(screenWidth - 4, 12), red); }));
  item_.reset();
  EXPECT_TRUE(waitFor([this] { return !similar(pixel(screenWidth - 4, 12), red); }));
}

TEST_F(X11StatusItemTest, ReservesItsEdgeOfTheScreenOnlyWhenAskedTo) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  EXPECT_EQ(probe().number("_NET_WM_STRUT"), std::nullopt);

  Environment environment;
  environment.set("ROOMLATTICE_RESERVE_SCREEN_EDGE", "1");
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  other.maximize();
  EXPECT_TRUE(waitFor([&] {
    const QRect frame = WindowProbe(ui_.connection(), other.id()).geometry().value();
    return frame.width() > 1200 && frame.top() >= height;
  }));
}

/// To be set before the Qt application is made.
struct DoubleScale {
  DoubleScale() { environment.set("QT_SCALE_FACTOR", "2"); }
  Environment environment;
};

class X11StatusItemScaledTest : DoubleScale, public X11StatusItemTest {};

TEST_F(X11StatusItemScaledTest, TakesTwoPixelsForAPoint) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  ASSERT_TRUE(comesToStandAt({screenWidth - 2 * height, 0, 2 * height, 2 * height}));
  const auto darkPixels = [this] {
    return countPixels(screenImage(ui_.connection(), {screenWidth - 2 * height, 0, 2 * height, 2 * height}),
                       QColor(28, 28, 30));
  };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 32 * 32; })) << darkPixels();
}

}  // namespace
}  // namespace roomlattice::tests
