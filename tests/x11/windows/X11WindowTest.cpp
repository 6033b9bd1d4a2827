#include "platform/x11/windows/X11Window.h"

#include "platform/x11/windows/ViewDrawing.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/windows/X11WindowFixture.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;
using platform::Rect;
using platform::WindowLevel;

class X11WindowUnderTest : public X11WindowTest, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  X11WindowUnderTest() : X11WindowTest({.windowManager = GetParam()}) {}
};

TEST_P(X11WindowUnderTest, StandsWhereItsFrameIs) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
}

TEST_P(X11WindowUnderTest, IsOutOfTaskbarsAndPagers) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(waitFor([&] {
    const WindowProbe seen = probe(*window);
    return seen.hasState("SKIP_TASKBAR") && seen.hasState("SKIP_PAGER");
  }));
  EXPECT_TRUE(waitFor([&] { return !probe(*window).hasState("DEMANDS_ATTENTION"); }));
}

TEST_P(X11WindowUnderTest, StaysInFrontOfAnApplicationThatComesLater) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  settle();
  EXPECT_TRUE(centerBecomes(Qt::red));
}

TEST_P(X11WindowUnderTest, LeavesTheKeyboardToTheApplicationThatHasIt) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(other.hasFocus());
}

TEST_P(X11WindowUnderTest, LetsClicksThrough) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  ASSERT_TRUE(waitFor([&] { return probe(*window).passesClicks(); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "640", "430", "click", "1"});
  EXPECT_TRUE(waitFor([&] { return other.clicks() == 1; }));
}

TEST_P(X11WindowUnderTest, StillLetsClicksThroughAfterItChangedItsSize) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  window->setFrame({{300.0, 200.0}, {680.0, 400.0}});
  ASSERT_TRUE(waitFor([&] { return probe(*window).geometry() == QRect(300, 200, 680, 400); }));
  EXPECT_TRUE(waitFor([&] { return probe(*window).passesClicks(); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "640", "430", "click", "1"});
  EXPECT_TRUE(waitFor([&] { return other.clicks() == 1; }));
}

TEST_P(X11WindowUnderTest, IsOnTheDesktopItWasPutOnAndNowhereElse) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U && probe(*window).number("WM_STATE") != 0U; }));
  settle();
  EXPECT_FALSE(similar(centerColor(), Qt::red));
  switchTo(2);
  EXPECT_TRUE(centerBecomes(Qt::red));
  switchTo(1);
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red); }));
}

TEST_P(X11WindowUnderTest, LeavesAMenuOpenWhenItAppears) {
  QMenu menu;
  menu.addAction(QStringLiteral("Item"));
  menu.popup({10, 10});
  ASSERT_TRUE(waitFor([&] { return QApplication::activePopupWidget() == &menu; }));
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  EXPECT_EQ(QApplication::activePopupWidget(), &menu);
  EXPECT_EQ(probe(*window).types().front(), "_NET_WM_WINDOW_TYPE_NOTIFICATION");
}

TEST_P(X11WindowUnderTest, MovesToAnotherDesktop) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  server_.addWindowToSpace(window->number(), spaceAt(3));
  EXPECT_TRUE(waitFor([&] { return probe(*window).desktop() == 3U && !similar(centerColor(), Qt::red); }));
}

TEST_P(X11WindowUnderTest, GoesBackHoweverOftenItIsTakenAwayInTheCourseOfTime) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U && probe(*window).number("WM_STATE") != 0U; }));
  const std::string id = std::to_string(window->number());
  for (int time = 0; time < 4; ++time) {
    ui_.session.run({"xdotool", "set_desktop_for_window", id, "1"});
    settle(time < 2 ? 200ms : 1100ms);
    EXPECT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U; }));
  }
}

TEST_P(X11WindowUnderTest, StaysWhereItIsWhenAnotherWindowOfTheProgramIsActivated) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U && probe(*window).number("WM_STATE") != 0U; }));
  settle();
  std::vector<std::optional<std::uint32_t>> desktops;
  const auto observation = ui_.connection().observe(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == probe(*window).id() && change.atom == ui_.connection().ewmh()->_NET_WM_DESKTOP) {
      desktops.push_back(probe(*window).desktop());
    }
  });
  QWidget ordinary;
  ordinary.setGeometry(100, 100, 200, 100);
  for (int time = 0; time < 3; ++time) {
    ordinary.show();
    ui_.qt.application().activateIgnoringOtherApps();
    ASSERT_TRUE(waitFor([&] { return focusedWindow(ui_.connection()) == ordinary.winId(); }));
    settle();
    ordinary.hide();
  }
  EXPECT_THAT(desktops, ::testing::Each(2U));
  EXPECT_EQ(probe(*window).desktop(), 2U);
}

TEST_P(X11WindowUnderTest, ComesBackOnItsOwnDesktopAfterItWasHidden) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U; }));
  for (int time = 0; time < 5; ++time) {
    // Without a pause, so that a window manager is still busy with the hiding.
    window->orderOut();
    window->orderFront();
  }
  settle();
  EXPECT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U; }));
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red); }));
  switchTo(2);
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
}

TEST_P(X11WindowUnderTest, IsOnEveryDesktopWhenItJoinsAll) {
  const auto window = make({.level = WindowLevel::StatusWindow,
                            .collectionBehavior = CollectionBehavior::CanJoinAllSpaces | CollectionBehavior::Stationary,
                            .alpha = 1.0});
  window->orderFront();
  for (const int desktop : {2, 3, 0}) {
    ASSERT_TRUE(appears(*window));
    switchTo(desktop);
    EXPECT_TRUE(centerBecomes(Qt::red));
  }
  EXPECT_EQ(probe(*window).desktop(), platform::x11::allDesktops);
}

TEST_P(X11WindowUnderTest, OfAHigherLevelStaysInFrontOfALaterOneOfALowerLevel) {
  const auto high = make({.level = WindowLevel::StatusWindow, .alpha = 1.0});
  high->orderFront();
  ASSERT_TRUE(appears(*high));
  const auto low = make({.level = WindowLevel::Floating, .alpha = 1.0}, {0.0, 1.0, 0.0});
  low->orderFront();
  ASSERT_TRUE(appears(*low));
  settle();
  EXPECT_TRUE(centerBecomes(Qt::red));
}

TEST_P(X11WindowUnderTest, GoesBackToItsPlaceWhenItIsTakenAway) {
  const auto window = makeOn(0);
  ASSERT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
  settle();
  ui_.session.run({"wmctrl", "-i", "-r", std::to_string(window->number()), "-e", "0,10,20,300,100"});
  settle();
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
}

TEST_P(X11WindowUnderTest, LeavesTheScreenWithItsObject) {
  auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  window.reset();
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red); }));
}

TEST_P(X11WindowUnderTest, RefusesToBeClosed) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  ui_.session.run({"wmctrl", "-i", "-c", std::to_string(window->number())});
  settle();
  EXPECT_TRUE(probe(*window).isViewable());
  EXPECT_TRUE(centerBecomes(Qt::red));
}

TEST_P(X11WindowUnderTest, ShowsNothingAtAlphaZero) {
  const auto window = makeOn(0, 0.0);
  settle();
  EXPECT_FALSE(similar(centerColor(), Qt::red, 40));
  window->setAlpha(1.0);
  EXPECT_TRUE(centerBecomes(Qt::red));
  window->setAlpha(0.0);
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red, 40); }));
}

INSTANTIATE_TEST_SUITE_P(OnEvery, X11WindowUnderTest, everyWindowManager(), ::testing::PrintToStringParamName());

TEST_F(X11WindowTest, MovesWithThePrimaryScreenWhenItIsPlacedAnew) {
  ui_.session.changesMonitors();
  ui_.session.run({"xrandr", "--setmonitor", "one", "800/200x600/150+0+0", "screen"});
  ASSERT_TRUE(waitFor([this] { return ui_.screens.toQt(platform::Point{0, 0}) == QPointF(0, 600); }));
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  ui_.session.run({"xrandr", "--setmonitor", "other", "800/200x600/150+480+200", "screen"});
  ui_.session.run({"xrandr", "--delmonitor", "one"});
  ASSERT_TRUE(waitFor([this] { return ui_.screens.toQt(platform::Point{0, 0}) == QPointF(480, 800); }));
  window->setFrame(window->frame());
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels.translated(480, 0); }));
}

TEST_F(X11WindowTest, KeepsTheFrameItWasGiven) {
  const auto window = makeOn(0);
  const Rect frame{{10.25, 20.5}, {300.75, 100.125}};
  window->setFrame(frame);
  EXPECT_EQ(window->frame(), frame);
  const QRect expected(10, 800 - 121, 301, 101);
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == expected; }));
}

/// A plate with large letters.
class Sign final : public platform::View {
 public:
  Sign() { setFrame({{}, {480.0, 200.0}}); }

  void setLetters(const platform::Color& color) {
    letters_ = color;
    contentChanged();
  }

  platform::ViewContent content() const override {
    return {.background = platform::Color::black().withAlpha(0.78),
            .cornerRadius = 40.0,
            .elements = {{.frame = {{40.0, 40.0}, {400.0, 120.0}},
                          .kind = platform::TextElement{.text = "Sign",
                                                        .font = {.size = 100.0, .weight = platform::FontWeight::Heavy},
                                                        .color = letters_,
                                                        .alignment = platform::TextAlignment::Center}}}};
  }

 private:
  platform::Color letters_ = platform::Color::white();
};

/// Of all that is not at the corners.
int largestDifference(const QImage& a, const QImage& b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 50; x < a.width() - 50; ++x) {
      largest = std::max(largest, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    }
  }
  return largest;
}

class X11WindowLookTest : public X11WindowTest {
 protected:
  /// Without a compositor, as a widget would draw it now.
  static QImage drawn(Sign& sign) {
    QWidget widget;
    QImage image(labelPixels.size(), QImage::Format_RGB32);
    {
      QPainter painter(&image);
      platform::x11::ViewDrawing(sign, widget).paint(painter, {.solid = true});
    }
    return image;
  }

  std::unique_ptr<platform::Window> showing(std::unique_ptr<platform::View> view) {
    auto window = makeOn(0);
    window->setContentView(std::move(view));
    return window;
  }

  bool becomes(const QImage& expected) {
    return waitFor([&] { return largestDifference(screenImage(ui_.connection(), labelPixels), expected) <= 1; });
  }
};

TEST_F(X11WindowLookTest, IsThatOfItsViewEachTimeItIsShown) {
  Sign sign;
  const auto window = showing(std::make_unique<Sign>());
  EXPECT_TRUE(becomes(drawn(sign)));
  switchTo(1);
  ASSERT_TRUE(centerBecomes(Qt::blue));
  switchTo(0);
  EXPECT_TRUE(becomes(drawn(sign)));
}

TEST_F(X11WindowLookTest, FollowsItsView) {
  auto shown = std::make_unique<Sign>();
  Sign& sign = *shown;
  const auto window = showing(std::move(shown));
  ASSERT_TRUE(becomes(drawn(sign)));
  for (const platform::Color& color : {platform::Color{0.0, 1.0, 0.0}, platform::Color::white()}) {
    sign.setLetters(color);
    EXPECT_TRUE(becomes(drawn(sign)));
  }
}

TEST_F(X11WindowLookTest, TurnsASpinner) {
  class Waiting final : public platform::View {
   public:
    Waiting() { setFrame({{}, {480.0, 200.0}}); }
    platform::ViewContent content() const override {
      return {.background = platform::Color::black(),
              .elements = {{.frame = {{200.0, 60.0}, {80.0, 80.0}}, .kind = platform::SpinnerElement()}}};
    }
  };
  const auto window = showing(std::make_unique<Waiting>());
  ASSERT_TRUE(centerBecomes(Qt::black));
  const auto turned = [this, before = screenImage(ui_.connection(), labelPixels)] {
    return screenImage(ui_.connection(), labelPixels) != before;
  };
  EXPECT_TRUE(waitFor(turned));
}

}  // namespace
}  // namespace roomlattice::tests
