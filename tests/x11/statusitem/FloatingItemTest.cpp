#include "platform/x11/statusitem/FloatingItem.h"

#include "platform/x11/statusitem/StatusItemDrawing.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/UserInterfaceFixture.h"
#include "tests/x11/session/WindowProbe.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

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
using platform::x11::FloatingItem;
using platform::x11::NativeWindow;
using platform::x11::Strut;

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

class FloatingItemTest : public ::testing::Test {
 protected:
  explicit FloatingItemTest(const SessionOptions& options = {}) : ui_(options) {}

  StatusItem& show(const StatusButtonContent& content, const StatusItemLength& length = VariableLength{}) {
    item_ = ui_.userInterface.createStatusItem(length);
    item_->button()->setContent(content);
    return *item_;
  }

  /// The item where it floats; null while it does not.
  static QWidget* floating() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found =
        std::ranges::find_if(windows, [](QWidget* window) { return dynamic_cast<FloatingItem*>(window) != nullptr; });
    return found == windows.end() ? nullptr : *found;
  }

  WindowProbe probe() {
    QWidget* window = floating();
    const WId id = window == nullptr ? WId{XCB_WINDOW_NONE} : window->winId();
    return {ui_.connection(), static_cast<xcb_window_t>(id)};
  }

  bool comesToStandAt(const QRect& frame) {
    return waitFor([this, frame] { return probe().isViewable() && probe().geometry() == frame; });
  }

  static QRect middleOfTheTop(int width) {
    return {static_cast<int>(std::lround((screenWidth - width) / 2.0)), 0, width, height};
  }

  bool standsInTheMiddle(int width) { return comesToStandAt(middleOfTheTop(width)); }

  /// The colour at the right end of an item of that width, beside its title.
  QColor colorAtTheEnd(int width) { return pixel(middleOfTheTop(width).right() - 2, 12); }

  /// Presses the first button on the item.
  void click() {
    ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "1"});
  }

  int titleWidth(const std::string& text) {
    const Font font{.size = ui_.userInterface.systemFontSize(), .weight = FontWeight::Medium};
    return static_cast<int>(std::ceil(ui_.userInterface.measure(text, font).width));
  }

  /// Moves the pointer with the first button down.
  void drag(const QPoint& from, const QPoint& to) {
    ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(from.x()), std::to_string(from.y()), "mousedown",
                     "1", "mousemove", "--sync", std::to_string(to.x()), std::to_string(from.y()), "mousemove",
                     "--sync", std::to_string(to.x()), std::to_string(to.y()), "mouseup", "1"});
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

/// A panel of another program along the top edge of the screen.
class Panel {
 public:
  Panel(platform::x11::X11Connection& connection, std::uint32_t depth) {
    widget_.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    widget_.setGeometry(0, 0, screenWidth, static_cast<int>(depth));
    NativeWindow window(connection, widget_);
    window.writeHints({.types = {connection.ewmh()->_NET_WM_WINDOW_TYPE_DOCK}, .desktop = platform::x11::allDesktops});
    window.setStrut(Strut{.edge = Strut::Edge::Top, .depth = depth, .startX = 0, .endX = screenWidth - 1});
    widget_.show();
  }

 private:
  QWidget widget_;
};

/// To a pixel or two, as places are stored as parts of an edge.
bool isNear(const QRect& frame, const QRect& wanted) {
  return frame.size() == wanted.size() && (frame.topLeft() - wanted.topLeft()).manhattanLength() <= 3;
}

class FloatingItemUnderTest : public FloatingItemTest, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  FloatingItemUnderTest() : FloatingItemTest({.windowManager = GetParam()}) {}
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
  const Panel panel(ui_.connection(), 30);
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  EXPECT_TRUE(comesToStandAt(middleOfTheTop(width).translated(0, 30)));
}

TEST_P(FloatingItemUnderTest, MakesWayForAPanelThatComes) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(standsInTheMiddle(width));
  std::optional<Panel> panel(std::in_place, ui_.connection(), 30);
  EXPECT_TRUE(comesToStandAt(middleOfTheTop(width).translated(0, 30)));
  panel.reset();
  EXPECT_TRUE(standsInTheMiddle(width));
}

TEST_P(FloatingItemUnderTest, ReservesItsEdgeBesideThePanelsWhenAskedTo) {
  const Panel panel(ui_.connection(), 30);
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

class FloatingItemUnderI3Test : public FloatingItemTest {
 protected:
  FloatingItemUnderI3Test() : FloatingItemTest({.windowManager = WindowManagerKind::I3}) {}
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

TEST_F(FloatingItemTest, IsAsWideAsHighInSquareLength) {
  show({.image = squareIcon()}, SquareLength{});
  EXPECT_TRUE(standsInTheMiddle(height));
}

TEST_F(FloatingItemTest, HasExactlyTheFixedWidthWhateverItsTitle) {
  StatusItem& item = show(redTitle(" M "), FixedLength{140.0});
  EXPECT_TRUE(standsInTheMiddle(140));
  item.button()->setContent(redTitle(" A title that is a good deal longer than it has room for "));
  item.setLength(FixedLength{141.0});
  EXPECT_TRUE(standsInTheMiddle(141));
}

TEST_F(FloatingItemTest, IsNeverWiderThanTheScreen) {
  show(redTitle(std::string(1000, 'W')));
  EXPECT_TRUE(standsInTheMiddle(screenWidth));
}

TEST_F(FloatingItemTest, GoesToTheMiddleOfAResizedScreen) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xrandr", "--newmode", "smaller", "36", "800", "824", "896", "1024", "600", "601", "603", "625"});
  ui_.session.run({"xrandr", "--addmode", "screen", "smaller"});
  ui_.session.run({"xrandr", "--output", "screen", "--mode", "smaller"});
  const int width = titleWidth(" Mail ");
  EXPECT_TRUE(comesToStandAt({static_cast<int>(std::lround((800 - width) / 2.0)), 0, width, height}));
}

TEST_F(FloatingItemTest, IsAllBackgroundWithRoundedCornersAndTheTitleInItsColor) {
  show({.title = {.text = " Mail ", .color = Color{0.0, 0.0, 1.0}},
        .background = Color{1.0, 0.0, 0.0},
        .cornerRadius = 3.0});
  const QRect frame = middleOfTheTop(titleWidth(" Mail "));
  ASSERT_TRUE(waitFor([&] { return similar(colorAtTheEnd(frame.width()), red); }));
  const QImage image = screenImage(ui_.connection(), frame);
  EXPECT_TRUE(similar(image.pixelColor(frame.width() / 2, 0), red));
  EXPECT_TRUE(similar(image.pixelColor(frame.width() / 2, height - 1), red));
  EXPECT_FALSE(similar(image.pixelColor(0, 0), red));
  EXPECT_GT(countPixels(image, Qt::blue, 40), 10);
}

TEST_F(FloatingItemTest, LiesOnThePlateOfTheBarWhereItHasNoBackground) {
  ui_.session.run({"hsetroot", "-solid", "#0000ff"});
  show({.title = {.text = " Mail ", .color = Color{0.0, 0.0, 1.0}}});
  const QRect frame = middleOfTheTop(titleWidth(" Mail "));
  EXPECT_TRUE(waitFor([&] { return similar(colorAtTheEnd(frame.width()), QColor(246, 246, 247)); }));
}

TEST_F(FloatingItemTest, DrawsATemplateImageInTheBarsTextColor) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  ASSERT_TRUE(standsInTheMiddle(height));
  // Light without any setting: dark text. The icon has its whole 16 points, with sharp edges.
  const auto darkPixels = [this] {
    return countPixels(screenImage(ui_.connection(), middleOfTheTop(height)), QColor(28, 28, 30));
  };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 16 * 16; })) << darkPixels();
}

TEST_F(FloatingItemTest, LeavesTheScreenWithItsObject) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(waitFor([&] { return similar(colorAtTheEnd(width), red); }));
  item_.reset();
  EXPECT_TRUE(waitFor([&] { return !similar(colorAtTheEnd(width), red); }));
}

TEST_F(FloatingItemTest, ReservesNoEdgeUnlessAskedTo) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  EXPECT_EQ(probe().number("_NET_WM_STRUT"), std::nullopt);
}

TEST_F(FloatingItemTest, SwitchesToTheNeighbourWhenTheWheelTurns) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "5"});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 1; }));
  ui_.session.run({"xdotool", "click", "4"});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 0; }));
}

TEST_F(FloatingItemTest, OpensItsOwnMenuByTheRightButton) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "3"});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  QStringList titles;
  for (const QAction* action : QApplication::activePopupWidget()->actions()) {
    titles << action->text();
  }
  EXPECT_TRUE(titles.contains(QStringLiteral("Keep the Edge Free"))) << titles.join(u',').toStdString();
}

TEST_F(FloatingItemTest, IsAButtonWithANameForThoseWhoCannotSeeIt) {
  platform::Menu menu;
  menu.items.emplace_back(platform::CommandItem{"Command", "", [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(floating());
  ASSERT_NE(interface, nullptr);
  EXPECT_EQ(interface->role(), QAccessible::Button);
  EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Mail"));
  interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
}

TEST_F(FloatingItemTest, TellsTheWholeTitleWhereItIsCut) {
  show(redTitle(" <b>Letters</b> "), FixedLength{30.0});
  ASSERT_TRUE(standsInTheMiddle(30));
  EXPECT_EQ(floating()->toolTip(), QStringLiteral("&lt;b&gt;Letters&lt;/b&gt;"));
}

TEST_F(FloatingItemTest, IsNeverTooNarrowToHit) {
  show(redTitle("i"));
  EXPECT_TRUE(standsInTheMiddle(height));
}

/// To be set before the Qt application is made.
struct DoubleScale {
  DoubleScale() { environment.set("QT_SCALE_FACTOR", "2"); }
  Environment environment;
};

class FloatingItemScaledTest : DoubleScale, public FloatingItemTest {};

TEST_F(FloatingItemScaledTest, TakesTwoPixelsForAPoint) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  const QRect frame(screenWidth / 2 - height, 0, 2 * height, 2 * height);
  ASSERT_TRUE(comesToStandAt(frame));
  const auto darkPixels = [&] { return countPixels(screenImage(ui_.connection(), frame), QColor(28, 28, 30)); };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 32 * 32; })) << darkPixels();
}

}  // namespace
}  // namespace roomlattice::tests
