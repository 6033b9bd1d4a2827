#include "platform/x11/connection/X11Screens.h"

#include "support/InProcessNotificationCenter.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QGuiApplication>
#include <QScreen>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Point;
using platform::Rect;
using platform::Screen;
using platform::x11::X11Screens;
using ::testing::ElementsAre;

class X11ScreensTest : public ::testing::Test {
 protected:
  X11ScreensTest() { session_.changesMonitors(); }

  /// Cuts the server's screen into two monitors, the right one of which is lower and smaller.
  void addSecondMonitor() {
    session_.run({"xrandr", "--setmonitor", "left", "800/200x600/150+0+0", "screen"});
    session_.run({"xrandr", "--setmonitor", "right", "480/120x400/100+800+100", "none"});
  }

  X11Session session_{{.windowManager = WindowManagerKind::Openbox, .screen = "1280x800x24"}};
  QtApplication qt_;
  InProcessNotificationCenter center_;
  int posts_ = 0;
  platform::Registration observation_ =
      center_.observe(platform::notification::didChangeScreenParameters, [this] { ++posts_; });
  X11Screens screens_{qt_.connection(), center_};
};

TEST_F(X11ScreensTest, HaveTheirOriginAtTheBottomLeft) {
  EXPECT_THAT(screens_.screens(), ElementsAre(Screen{Rect{{0, 0}, {1280, 800}}}));
  EXPECT_EQ(screens_.mainScreen(), screens_.screens().front());
}

TEST_F(X11ScreensTest, TurnCoordinatesAround) {
  EXPECT_EQ(screens_.fromQt(QPointF(10, 20)), (Point{10, 780}));
  EXPECT_EQ(screens_.toQt(Point{10, 780}), QPointF(10, 20));
  EXPECT_EQ(screens_.fromQt(QRectF(10, 20, 30, 40)), (Rect{{10, 740}, {30, 40}}));
  EXPECT_EQ(screens_.toQt(Rect{{10, 740}, {30, 40}}), QRectF(10, 20, 30, 40));
  EXPECT_EQ(screens_.fromPixel(QPointF(10, 20)), (Point{10, 780}));
}

TEST_F(X11ScreensTest, PostThatTheSizeHasChanged) {
  session_.run({"xrandr", "--newmode", "small", "60", "1024", "1048", "1184", "1344", "768", "771", "777", "806"});
  session_.run({"xrandr", "--addmode", "screen", "small"});
  session_.run({"xrandr", "--output", "screen", "--mode", "small"});
  EXPECT_TRUE(waitFor([this] { return screens_.screens().front().frame.size == platform::Size{1024, 768}; }));
  EXPECT_TRUE(waitFor([this] { return posts_ > 0; }));
}

TEST_F(X11ScreensTest, ThatMoveTogetherHaveAnotherPlaceOnTheRoot) {
  session_.run({"xrandr", "--setmonitor", "one", "800/200x600/150+0+0", "screen"});
  ASSERT_TRUE(waitFor([this] { return screens_.toQt(Point{0, 0}) == QPointF(0, 600); }));
  ASSERT_TRUE(waitFor([this] { return posts_ == 1; }));
  session_.run({"xrandr", "--setmonitor", "other", "800/200x600/150+480+200", "screen"});
  // Newer servers keep it, while older ones drop a monitor that has lost its output.
  session_.run({"xrandr", "--delmonitor", "one"});
  EXPECT_TRUE(waitFor([this] { return screens_.toQt(Point{0, 0}) == QPointF(480, 800); }));
  EXPECT_TRUE(waitFor([this] { return posts_ > 1; }));
  EXPECT_THAT(screens_.screens(), ElementsAre(Screen{Rect{{0, 0}, {800, 600}}}));
}

TEST_F(X11ScreensTest, OfSeveralMonitorsStandAroundThePrimaryOne) {
  addSecondMonitor();
  EXPECT_TRUE(waitFor([this] { return screens_.screens().size() == 2; }));
  EXPECT_THAT(screens_.screens(), ElementsAre(Screen{Rect{{0, 0}, {800, 600}}}, Screen{Rect{{800, 100}, {480, 400}}}));
  EXPECT_GT(posts_, 0);
}

TEST_F(X11ScreensTest, HaveTheMainOneWhereTheActiveWindowIs) {
  addSecondMonitor();
  ASSERT_TRUE(waitFor([this] { return screens_.screens().size() == 2; }));
  session_.run({"xdotool", "mousemove", "10", "10"});
  const PlainWindow window(QRect(900, 200, 100, 100), Qt::red);
  EXPECT_TRUE(waitFor([this] { return screens_.mainScreen() == screens_.screens()[1]; }));
}

TEST_F(X11ScreensTest, PostThatTheMainOneIsAnother) {
  addSecondMonitor();
  ASSERT_TRUE(waitFor([this] { return screens_.screens().size() == 2; }));
  session_.run({"xdotool", "mousemove", "10", "10"});
  const PlainWindow left(QRect(100, 200, 100, 100), Qt::red);
  ASSERT_TRUE(waitFor([this] { return screens_.mainScreen() == screens_.screens()[0]; }));
  posts_ = 0;
  const PlainWindow right(QRect(900, 200, 100, 100), Qt::red);
  EXPECT_TRUE(waitFor([this] { return posts_ == 1; }));
  const PlainWindow besideIt(QRect(1100, 200, 100, 100), Qt::red);
  const PlainWindow leftAgain(QRect(300, 200, 100, 100), Qt::red);
  EXPECT_TRUE(waitFor([this] { return posts_ == 2; }));
}

TEST_F(X11ScreensTest, HaveTheMainOneWhereThePointerIsWhenNoWindowIsActive) {
  addSecondMonitor();
  ASSERT_TRUE(waitFor([this] { return screens_.screens().size() == 2; }));
  session_.run({"xdotool", "mousemove", "1000", "300"});
  EXPECT_EQ(screens_.mainScreen(), screens_.screens()[1]);
  session_.run({"xdotool", "mousemove", "10", "10"});
  EXPECT_EQ(screens_.mainScreen(), screens_.screens()[0]);
}

TEST(X11ScreensWithoutOutputsTest, AreTheRootWindowUntilThereIsOne) {
  X11Session session({.screen = "1280x800x24"});
  session.run({"xrandr", "--fb", "1280x800", "--output", "screen", "--off"});
  QtApplication qt;
  InProcessNotificationCenter center;
  int posts = 0;
  const auto observation = center.observe(platform::notification::didChangeScreenParameters, [&posts] { ++posts; });
  const X11Screens screens(qt.connection(), center);
  EXPECT_THAT(screens.screens(), ElementsAre(Screen{Rect{{0, 0}, {1280, 800}}}));
  EXPECT_EQ(screens.mainScreen(), screens.screens().front());
  EXPECT_EQ(screens.toQt(Point{10, 780}), QPointF(10, 20));
  session.run({"xrandr", "--output", "screen", "--auto"});
  EXPECT_TRUE(waitFor([&posts] { return posts > 0; }));
}

TEST(X11ScreensOfAnotherServerTest, StayWhatTheyWereWhileNoOutputIsOn) {
  std::optional<X11Session> session;
  try {
    session.emplace(SessionOptions{.server = ServerKind::XorgWithTouchpad});
  } catch (const ServerNotStarted& reason) {
    GTEST_SKIP() << "no X server with outputs: " << reason.what();
  }
  QtApplication qt;
  InProcessNotificationCenter center;
  const X11Screens screens(qt.connection(), center);
  const std::vector<Screen> before = screens.screens();
  ASSERT_FALSE(before.empty());
  const std::string output = QGuiApplication::primaryScreen()->name().toStdString();
  session->run({"xrandr", "--fb", "800x600", "--output", output, "--off"});
  const auto hasOutput = [&] { return QGuiApplication::primaryScreen()->name().toStdString() == output; };
  ASSERT_TRUE(waitFor([&] { return !hasOutput(); }));
  EXPECT_EQ(screens.screens(), before);
  EXPECT_EQ(screens.mainScreen(), before.front());
  session->run({"xrandr", "--output", output, "--auto"});
  EXPECT_TRUE(waitFor(hasOutput));
  EXPECT_TRUE(waitFor([&] { return screens.screens() == before; }));
}

}  // namespace
}  // namespace roomlattice::tests
