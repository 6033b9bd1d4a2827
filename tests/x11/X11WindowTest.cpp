#include "platform/x11/X11Window.h"

#include "platform/x11/X11WindowServer.h"
#include "tests/x11/PlainWindow.h"
#include "tests/x11/ScreenImage.h"
#include "tests/x11/UserInterfaceFixture.h"
#include "tests/x11/WindowProbe.h"

#include <QApplication>
#include <QMenu>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;
using platform::Color;
using platform::OverlayWindowOptions;
using platform::Rect;
using platform::SpaceID;
using platform::View;
using platform::ViewContent;
using platform::Window;
using platform::WindowLevel;

constexpr int screenHeight = 800;
constexpr Rect labelFrame{{400.0, 300.0}, {480.0, 200.0}};
const QRect labelPixels(400, 300, 480, 200);  // the same seen from the top
const QPoint labelCenter(640, 400);

/// A plate of one colour.
class Plate final : public View {
 public:
  explicit Plate(const Color& color) : color_(color) { setFrame({{}, labelFrame.size}); }
  ViewContent content() const override { return {.background = color_, .cornerRadius = 40.0}; }

 private:
  Color color_;
};

class OverlayWindowTest : public ::testing::Test {
 protected:
  explicit OverlayWindowTest(const SessionOptions& options = {}) : ui_(options) {
    ui_.session.run({"hsetroot", "-solid", "#0000ff"});
  }

  std::unique_ptr<Window> make(OverlayWindowOptions options, const Color& color = {1.0, 0.0, 0.0}) {
    options.frame = labelFrame;
    auto window = ui_.userInterface.createOverlayWindow(options);
    window->setContentView(std::make_unique<Plate>(color));
    return window;
  }

  /// A window attached to a desktop as the program does it: ordered in first, in the same turn.
  std::unique_ptr<Window> makeOn(std::size_t desktop, double alpha = 1.0) {
    auto window = make({.alpha = alpha});
    window->orderFront();
    server_.addWindowToSpace(window->number(), spaceAt(desktop));
    return window;
  }

  SpaceID spaceAt(std::size_t index) const { return ui_.desktops.list().desktops.at(index).id; }

  WindowProbe probe(const Window& window) { return {ui_.connection(), static_cast<xcb_window_t>(window.number())}; }

  bool appears(const Window& window) {
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
  void settle(std::chrono::milliseconds time = 200ms) {
    bool done = false;
    QTimer::singleShot(time, [&done] { done = true; });
    ASSERT_TRUE(waitFor([&done] { return done; }));
  }

  UserInterfaceSession ui_;
  platform::x11::X11WindowServer server_{ui_.connection(), ui_.desktops, ui_.attachments};
};

class OverlayWindowUnder : public OverlayWindowTest, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  OverlayWindowUnder() : OverlayWindowTest({.windowManager = GetParam()}) {}
};

TEST_P(OverlayWindowUnder, StandsWhereItsFrameIs) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
}

TEST_P(OverlayWindowUnder, IsOutOfTaskbarsAndPagers) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(waitFor([&] {
    const WindowProbe seen = probe(*window);
    return seen.hasState("SKIP_TASKBAR") && seen.hasState("SKIP_PAGER");
  }));
  EXPECT_TRUE(waitFor([&] { return !probe(*window).hasState("DEMANDS_ATTENTION"); }));
}

TEST_P(OverlayWindowUnder, StaysInFrontOfAnApplicationThatComesLater) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  settle();
  EXPECT_TRUE(centerBecomes(Qt::red));
}

TEST_P(OverlayWindowUnder, LeavesTheKeyboardToTheApplicationThatHasIt) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(other.hasFocus());
}

TEST_P(OverlayWindowUnder, LetsClicksThrough) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  ASSERT_TRUE(waitFor([&] { return probe(*window).passesClicks(); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "640", "430", "click", "1"});
  EXPECT_TRUE(waitFor([&] { return other.clicks() == 1; }));
}

TEST_P(OverlayWindowUnder, StillLetsClicksThroughAfterItChangedItsSize) {
  PlainWindow other({500, 350, 300, 150}, Qt::green);
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  window->setFrame({{300.0, 200.0}, {680.0, 400.0}});
  ASSERT_TRUE(waitFor([&] { return probe(*window).geometry() == QRect(300, 200, 680, 400); }));
  EXPECT_TRUE(waitFor([&] { return probe(*window).passesClicks(); }));
  ui_.session.run({"xdotool", "mousemove", "--sync", "640", "430", "click", "1"});
  EXPECT_TRUE(waitFor([&] { return other.clicks() == 1; }));
}

TEST_P(OverlayWindowUnder, IsOnTheDesktopItWasPutOnAndNowhereElse) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U && probe(*window).number("WM_STATE") != 0U; }));
  settle();
  EXPECT_FALSE(similar(centerColor(), Qt::red));
  switchTo(2);
  EXPECT_TRUE(centerBecomes(Qt::red));
  switchTo(1);
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red); }));
}

TEST_P(OverlayWindowUnder, LeavesAMenuOpenWhenItAppears) {
  QMenu menu;
  menu.addAction(QStringLiteral("Item"));
  menu.popup({10, 10});
  ASSERT_TRUE(waitFor([&] { return QApplication::activePopupWidget() == &menu; }));
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  EXPECT_EQ(QApplication::activePopupWidget(), &menu);
  EXPECT_EQ(probe(*window).types().front(), "_NET_WM_WINDOW_TYPE_NOTIFICATION");
}

TEST_P(OverlayWindowUnder, MovesToAnotherDesktop) {
  const auto window = makeOn(0);
  ASSERT_TRUE(appears(*window));
  server_.addWindowToSpace(window->number(), spaceAt(3));
  EXPECT_TRUE(waitFor([&] { return probe(*window).desktop() == 3U && !similar(centerColor(), Qt::red); }));
}

TEST_P(OverlayWindowUnder, GoesBackHoweverOftenItIsTakenAwayInTheCourseOfTime) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U && probe(*window).number("WM_STATE") != 0U; }));
  const std::string id = std::to_string(window->number());
  for (int time = 0; time < 4; ++time) {
    ui_.session.run({"xdotool", "set_desktop_for_window", id, "1"});
    settle(time < 2 ? 200ms : 1100ms);
    EXPECT_EQ(probe(*window).desktop(), 2U);
  }
}

TEST_P(OverlayWindowUnder, StaysWhereItIsWhenAnotherWindowOfTheProgramIsActivated) {
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

TEST_P(OverlayWindowUnder, ComesBackOnItsOwnDesktopAfterItWasHidden) {
  const auto window = makeOn(2);
  ASSERT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U; }));
  for (int time = 0; time < 5; ++time) {
    // Without a pause, so that a window manager is still busy with the hiding.
    window->orderOut();
    window->orderFront();
  }
  settle();
  EXPECT_TRUE(waitFor([&] { return probe(*window).desktop() == 2U; }));
  EXPECT_FALSE(similar(centerColor(), Qt::red));
  switchTo(2);
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == labelPixels; }));
}

TEST_P(OverlayWindowUnder, IsOnEveryDesktopWhenItJoinsAll) {
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

TEST_P(OverlayWindowUnder, OfAHigherLevelStaysInFrontOfALaterOneOfALowerLevel) {
  const auto high = make({.level = WindowLevel::StatusWindow, .alpha = 1.0});
  high->orderFront();
  ASSERT_TRUE(appears(*high));
  const auto low = make({.level = WindowLevel::Floating, .alpha = 1.0}, {0.0, 1.0, 0.0});
  low->orderFront();
  ASSERT_TRUE(appears(*low));
  settle();
  EXPECT_TRUE(centerBecomes(Qt::red));
}

TEST_P(OverlayWindowUnder, LeavesTheScreenWithItsObject) {
  auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  window.reset();
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red); }));
}

TEST_P(OverlayWindowUnder, ShowsNothingAtAlphaZero) {
  const auto window = makeOn(0, 0.0);
  settle();
  EXPECT_FALSE(similar(centerColor(), Qt::red, 40));
  window->setAlpha(1.0);
  EXPECT_TRUE(centerBecomes(Qt::red));
  window->setAlpha(0.0);
  EXPECT_TRUE(waitFor([&] { return !similar(centerColor(), Qt::red, 40); }));
}

INSTANTIATE_TEST_SUITE_P(OnEvery, OverlayWindowUnder, everyWindowManager(), ::testing::PrintToStringParamName());

TEST_F(OverlayWindowTest, AnimatesItsAlphaToTheEnd) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.0, 50ms, [&done] { done = true; });
  EXPECT_FALSE(done);
  EXPECT_TRUE(waitFor([&done] { return done; }));
  EXPECT_EQ(window->alpha(), 0.0);
}

TEST_F(OverlayWindowTest, PassesThroughTheValuesBetween) {
  const auto window = makeOn(0);
  window->animateAlpha(0.0, 200ms, {});
  EXPECT_TRUE(waitFor([&] { return window->alpha() < 0.9 && window->alpha() > 0.1; }));
  EXPECT_TRUE(waitFor([&] { return window->alpha() == 0.0; }));
}

TEST_F(OverlayWindowTest, EndsAnAnimationWithoutCompletionWhenItsAlphaIsSet) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.0, 50ms, [&done] { done = true; });
  window->setAlpha(0.78);
  settle();
  EXPECT_FALSE(done);
  EXPECT_EQ(window->alpha(), 0.78);
}

TEST_F(OverlayWindowTest, AnimatesAgainAfterAnimationsThatEndedEarly) {
  const auto window = makeOn(0);
  for (int time = 0; time < 5; ++time) {
    window->animateAlpha(0.0, 50ms, {});
    window->setAlpha(1.0);
    if (time % 2 == 0) {
      settle();
    }
    bool done = false;
    window->animateAlpha(0.0, 50ms, [&done] { done = true; });
    ASSERT_TRUE(waitFor([&done] { return done; })) << time;
  }
}

TEST_F(OverlayWindowTest, SetsItsAlphaAtOnceWithoutADuration) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.5, 0ms, [&done] { done = true; });
  EXPECT_EQ(window->alpha(), 0.5);
  EXPECT_FALSE(done);
  EXPECT_TRUE(waitFor([&done] { return done; }));
}

TEST_F(OverlayWindowTest, LivesUntilACompletionThatOwnsItHasRun) {
  auto window = std::shared_ptr<Window>(makeOn(0));
  const std::weak_ptr<Window> watched = window;
  Window& shown = *window;
  bool orderedOut = false;
  shown.animateAlpha(0.0, 50ms, [&orderedOut, window = std::move(window)] {
    window->orderOut();
    orderedOut = true;
  });
  EXPECT_FALSE(watched.expired());
  EXPECT_TRUE(waitFor([&orderedOut] { return orderedOut; }));
  EXPECT_TRUE(waitFor([&watched] { return watched.expired(); }));
}

TEST_F(OverlayWindowTest, IsOpaqueWithRoundCornersWithoutACompositor) {
  const auto window = make({.alpha = 0.78}, {1.0, 0.0, 0.0, 0.5});
  window->orderFront();
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.topLeft() + QPoint(2, 2)), Qt::blue));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.bottomRight() - QPoint(2, 2)), Qt::blue));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.topLeft() + QPoint(60, 2)), Qt::red));
}

TEST_F(OverlayWindowTest, BlendsItsAlphaWithWhatIsBelowUnderACompositor) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 0.5});
  window->orderFront();
  EXPECT_TRUE(waitFor([&] { return similar(centerColor(), QColor(128, 0, 128), 12); }))
      << centerColor().name().toStdString();
}

class OverlayWindowUnderFluxbox : public OverlayWindowTest {
 protected:
  OverlayWindowUnderFluxbox() : OverlayWindowTest({.windowManager = WindowManagerKind::Fluxbox}) {}
};

TEST_F(OverlayWindowUnderFluxbox, BlendsItsAlphaThoughItsOpacityIsIgnored) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 0.5});
  window->orderFront();
  EXPECT_TRUE(centerBecomes(QColor(128, 0, 128))) << centerColor().name().toStdString();
  window->setAlpha(0.0);
  EXPECT_TRUE(centerBecomes(Qt::blue)) << centerColor().name().toStdString();
}

TEST_F(OverlayWindowTest, BlendsItsBackgroundsAlphaUnderACompositor) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 1.0}, {1.0, 0.0, 0.0, 0.5});
  window->orderFront();
  EXPECT_TRUE(waitFor([&] { return similar(centerColor(), QColor(128, 0, 128), 12); }))
      << centerColor().name().toStdString();
}

TEST_F(OverlayWindowTest, FollowsACompositorThatComesAndGoes) {
  const auto window = make({.alpha = 0.5});
  window->orderFront();
  ASSERT_TRUE(centerBecomes(Qt::red));
  {
    ChildProcess picom({"picom", "--backend", "xrender"});
    EXPECT_TRUE(waitFor([&] { return similar(centerColor(), QColor(128, 0, 128), 12); }));
    window->setAlpha(0.0);
    EXPECT_TRUE(centerBecomes(Qt::blue));
    EXPECT_TRUE(appears(*window));
  }
  // It must not turn up as an opaque plate.
  EXPECT_TRUE(waitFor([&] { return !probe(*window).isViewable(); }));
  EXPECT_TRUE(centerBecomes(Qt::blue));
}

TEST_F(OverlayWindowTest, ChangesNothingOnTheScreenWhenItIsSetToWhatItIs) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  settle();
  int changes = 0;
  const auto id = static_cast<xcb_window_t>(window->number());
  const auto observation = ui_.connection().observe(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t& event) {
    changes += reinterpret_cast<const xcb_property_notify_event_t&>(event).window == id ? 1 : 0;
  });
  window->setAlpha(1.0);
  window->setFrame(labelFrame);
  settle();
  EXPECT_EQ(changes, 0);
}

TEST_F(OverlayWindowTest, KeepsTheFrameItWasGiven) {
  const auto window = makeOn(0);
  const Rect frame{{10.25, 20.5}, {300.75, 100.125}};
  window->setFrame(frame);
  EXPECT_EQ(window->frame(), frame);
  const QRect expected(10, screenHeight - 121, 301, 101);
  EXPECT_TRUE(waitFor([&] { return probe(*window).geometry() == expected; }));
}

}  // namespace
}  // namespace roomlattice::tests
