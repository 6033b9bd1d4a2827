#include "platform/x11/windows/X11Window.h"

#include "tests/x11/windows/X11WindowFixture.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <xcb/composite.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Window;

using X11WindowAlphaTest = X11WindowTest;

TEST_F(X11WindowAlphaTest, AnimatesItsAlphaToTheEnd) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.0, 50ms, [&done] { done = true; });
  EXPECT_FALSE(done);
  EXPECT_TRUE(waitFor([&done] { return done; }));
  EXPECT_EQ(window->alpha(), 0.0);
}

TEST_F(X11WindowAlphaTest, PassesThroughTheValuesBetween) {
  const auto window = makeOn(0);
  window->animateAlpha(0.0, 10s, [] {});
  EXPECT_TRUE(waitFor([&] { return window->alpha() < 0.99; }));
  EXPECT_GT(window->alpha(), 0.0);
  window->animateAlpha(0.0, 50ms, [] {});
  EXPECT_TRUE(waitFor([&] { return window->alpha() == 0.0; }));
}

TEST_F(X11WindowAlphaTest, EndsAnAnimationWithoutCompletionWhenItsAlphaIsSet) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.0, 50ms, [&done] { done = true; });
  window->setAlpha(0.78);
  settle();
  EXPECT_FALSE(done);
  EXPECT_EQ(window->alpha(), 0.78);
}

TEST_F(X11WindowAlphaTest, AnimatesItsAlphaOnADesktopThatIsNotInFront) {
  const auto window = makeOn(1);
  settle();
  bool done = false;
  window->animateAlpha(0.0, 50ms, [&done] { done = true; });
  EXPECT_TRUE(waitFor([&done] { return done; }));
  EXPECT_EQ(window->alpha(), 0.0);
  EXPECT_FALSE(probe(*window).isViewable());
}

/// The window manager does nothing, and the window is to fade out.
class X11WindowAlphaOfABusyWindowManagerTest : public X11WindowTest {
 protected:
  X11WindowAlphaOfABusyWindowManagerTest() {
    ui_.session.windowManager()->signal(SIGSTOP);
    window_ = makeOn(0);
    settle();
    window_->animateAlpha(0.0, 50ms, [this] { done_ = true; });
  }

  void letItGoOn() { ui_.session.windowManager()->signal(SIGCONT); }

  std::unique_ptr<Window> window_;
  bool done_ = false;
};

TEST_F(X11WindowAlphaOfABusyWindowManagerTest, BeginsAnAnimationOnceItIsTakenIn) {
  settle();
  EXPECT_EQ(window_->alpha(), 1.0);
  EXPECT_FALSE(done_);
  letItGoOn();
  EXPECT_TRUE(waitFor([this] { return done_; }));
  EXPECT_EQ(window_->alpha(), 0.0);
}

TEST_F(X11WindowAlphaOfABusyWindowManagerTest, GivesUpAnAnimationThatWaitsWhenItsAlphaIsSet) {
  window_->setAlpha(0.78);
  letItGoOn();
  ASSERT_TRUE(appears(*window_));
  settle();
  EXPECT_EQ(window_->alpha(), 0.78);
  EXPECT_FALSE(done_);
}

TEST_F(X11WindowAlphaTest, AnimatesAgainAfterAnimationsThatEndedEarly) {
  const auto window = makeOn(0);
  for (int time = 0; time < 5; ++time) {
    window->animateAlpha(0.0, 50ms, [] {});
    window->setAlpha(1.0);
    if (time % 2 == 0) {
      settle();
    }
    bool done = false;
    window->animateAlpha(0.0, 50ms, [&done] { done = true; });
    ASSERT_TRUE(waitFor([&done] { return done; })) << time;
  }
}

TEST_F(X11WindowAlphaTest, SetsItsAlphaAtOnceWithoutADuration) {
  const auto window = makeOn(0);
  bool done = false;
  window->animateAlpha(0.5, 0ms, [&done] { done = true; });
  EXPECT_EQ(window->alpha(), 0.5);
  EXPECT_FALSE(done);
  EXPECT_TRUE(waitFor([&done] { return done; }));
}

/// The program may be so busy that the time of an animation is over before its last step.
TEST_F(X11WindowAlphaTest, GoesAlsoWhenItsAlphaIsSetToWhatAnAnimationHasReachedUnseen) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  window->animateAlpha(0.0, 1ms, [] {});
  std::this_thread::sleep_for(5ms);
  ASSERT_EQ(window->alpha(), 0.0);
  window->setAlpha(0.0);
  EXPECT_TRUE(centerBecomes(Qt::blue));
}

TEST_F(X11WindowAlphaTest, LivesUntilACompletionThatOwnsItHasRun) {
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

TEST_F(X11WindowAlphaTest, GoesWithTheProgramAlsoWhenACompletionOwnsIt) {
  auto window = std::shared_ptr<Window>(makeOn(0));
  const std::weak_ptr<Window> watched = window;
  Window& shown = *window;
  shown.animateAlpha(0.0, 1h, [window = std::move(window)] { window->orderOut(); });
  QTimer::singleShot(0, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
  EXPECT_TRUE(watched.expired());
}

TEST_F(X11WindowAlphaTest, GoesWithTheProgramAlsoWhenACompletionThatOwnsItIsDue) {
  auto window = std::shared_ptr<Window>(makeOn(0));
  const std::weak_ptr<Window> watched = window;
  Window& shown = *window;
  bool called = false;
  QTimer::singleShot(0, [&] {
    shown.animateAlpha(0.0, 0ms, [&called, window = std::move(window)] { called = true; });
    QCoreApplication::quit();
  });
  QCoreApplication::exec();
  EXPECT_FALSE(called);
  EXPECT_TRUE(watched.expired());
}

TEST_F(X11WindowAlphaTest, IsOpaqueWithRoundCornersWithoutACompositor) {
  const auto window = make({.alpha = 0.78}, {1.0, 0.0, 0.0, 0.5});
  window->orderFront();
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.topLeft() + QPoint(2, 2)), Qt::blue));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.bottomRight() - QPoint(2, 2)), Qt::blue));
  EXPECT_TRUE(similar(screenColor(ui_.connection(), labelPixels.topLeft() + QPoint(60, 2)), Qt::red));
}

TEST_F(X11WindowAlphaTest, BlendsItsAlphaWithWhatIsBelowUnderACompositor) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 0.5});
  window->orderFront();
  EXPECT_TRUE(waitFor([&] { return similar(centerColor(), QColor(128, 0, 128), 12); }))
      << centerColor().name().toStdString();
}

class X11WindowAlphaUnderFluxboxTest : public X11WindowTest {
 protected:
  X11WindowAlphaUnderFluxboxTest() : X11WindowTest({.windowManager = WindowManagerKind::Fluxbox}) {}
};

TEST_F(X11WindowAlphaUnderFluxboxTest, BlendsItsAlphaThoughItsOpacityIsIgnored) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 0.5});
  window->orderFront();
  EXPECT_TRUE(centerBecomes(QColor(128, 0, 128))) << centerColor().name().toStdString();
  window->setAlpha(0.0);
  EXPECT_TRUE(centerBecomes(Qt::blue)) << centerColor().name().toStdString();
}

TEST_F(X11WindowAlphaTest, GoesUnderAWindowManagerThatIgnoresOpacityAndComesLater) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  ui_.session.stopWindowManager();
  ui_.session.startWindowManager(WindowManagerKind::Fluxbox);
  ASSERT_TRUE(centerBecomes(Qt::red));
  window->setAlpha(0.0);
  EXPECT_TRUE(centerBecomes(Qt::blue)) << centerColor().name().toStdString();
}

TEST_F(X11WindowAlphaTest, BlendsItsBackgroundsAlphaUnderACompositor) {
  ChildProcess picom({"picom", "--backend", "xrender"});
  const auto window = make({.alpha = 1.0}, {1.0, 0.0, 0.0, 0.5});
  window->orderFront();
  EXPECT_TRUE(waitFor([&] { return similar(centerColor(), QColor(128, 0, 128), 12); }))
      << centerColor().name().toStdString();
}

TEST_F(X11WindowAlphaTest, FollowsACompositorThatComesAndGoes) {
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
  EXPECT_TRUE(waitFor([&] { return probe(*window).isCutToNothing(); }));
  EXPECT_TRUE(centerBecomes(Qt::blue));
}

/// A compositing manager that has the server do all the work. It goes with its connection.
class PlainCompositor {
 public:
  PlainCompositor() {
    xcb_connection_t* raw = connection_->raw();
    const auto version = xcb_composite_query_version(raw, 0, 4);
    platform::x11::replyTo(raw, version, xcb_composite_query_version_reply);
    xcb_composite_redirect_subwindows(raw, connection_->root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    start();
  }

  /// Says that it has just started.
  void start() {
    xcb_connection_t* raw = connection_->raw();
    const xcb_window_t owner = xcb_generate_id(raw);
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, owner, connection_->root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const std::string selection = "_NET_WM_CM_S" + std::to_string(connection_->screenNumber());
    xcb_set_selection_owner(raw, owner, connection_->atom(selection), XCB_CURRENT_TIME);
    connection_->waitForServer();
  }

  /// Shows the window as if it had not seen it drawn.
  void overlook(const Window& window) {
    xcb_connection_t* raw = connection_->raw();
    const auto id = static_cast<xcb_window_t>(window.number());
    const xcb_gcontext_t context = xcb_generate_id(raw);
    constexpr std::uint32_t green = 0xff00ff00;
    xcb_create_gc(raw, context, id, XCB_GC_FOREGROUND, &green);
    constexpr xcb_rectangle_t everything = {0, 0, 2000, 2000};
    xcb_poly_fill_rectangle(raw, id, context, 1, &everything);
    xcb_free_gc(raw, context);
    connection_->waitForServer();
  }

 private:
  std::unique_ptr<platform::x11::X11Connection> connection_ = platform::x11::X11Connection::open();
};

TEST_F(X11WindowAlphaTest, IsDrawnAgainForACompositorThatWasStillStarting) {
  PlainCompositor compositor;
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  compositor.start();
  compositor.overlook(*window);
  EXPECT_TRUE(centerBecomes(Qt::red));
}

/// A window that fades under a compositor, until it is told to end.
class X11WindowAlphaInManyStepsTest : public X11WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(appears(*window_));
    settle();
    window_->animateAlpha(0.5, 1h, [] {});
  }

  void endFade() {
    window_->animateAlpha(0.5, 50ms, [] {});
  }

  bool hearsOfProperties() {
    xcb_connection_t* raw = ui_.connection().raw();
    const auto cookie = xcb_get_window_attributes(raw, static_cast<xcb_window_t>(window_->number()));
    const auto attributes = platform::x11::replyTo(raw, cookie, xcb_get_window_attributes_reply);
    return attributes != nullptr && (attributes->your_event_mask & XCB_EVENT_MASK_PROPERTY_CHANGE) != 0;
  }

  PlainCompositor compositor_;
  std::unique_ptr<Window> window_ = makeOn(0);
};

TEST_F(X11WindowAlphaInManyStepsTest, HearsNothingOfThem) {
  EXPECT_FALSE(hearsOfProperties());
  endFade();
  EXPECT_TRUE(waitFor([this] { return hearsOfProperties(); }));
}

TEST_F(X11WindowAlphaInManyStepsTest, RefusesAttentionAfterwards) {
  ui_.session.run({"wmctrl", "-i", "-r", std::to_string(window_->number()), "-b", "add,demands_attention"});
  ASSERT_TRUE(waitFor([this] { return probe(*window_).hasState("DEMANDS_ATTENTION"); }));
  endFade();
  EXPECT_TRUE(waitFor([this] { return !probe(*window_).hasState("DEMANDS_ATTENTION"); }));
}

TEST_F(X11WindowAlphaInManyStepsTest, AppearsAgainAfterwardsWhereTheWindowManagerHasForgottenIt) {
  xcb_connection_t* raw = ui_.connection().raw();
  const auto id = static_cast<xcb_window_t>(window_->number());
  xcb_unmap_window(raw, id);
  xcb_flush(raw);
  ASSERT_TRUE(waitFor([this] { return !probe(*window_).number("WM_STATE"); }));
  endFade();
  EXPECT_TRUE(appears(*window_));
}

TEST_F(X11WindowAlphaTest, StaysWithTheWindowManagerWhileItIsNotSeen) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  int unmappings = 0;
  const auto observation =
      ui_.connection().observe(XCB_UNMAP_NOTIFY, [&unmappings](const xcb_generic_event_t&) { ++unmappings; });
  window->setAlpha(0.0);
  EXPECT_TRUE(centerBecomes(Qt::blue));
  window->setAlpha(1.0);
  EXPECT_TRUE(centerBecomes(Qt::red));
  EXPECT_EQ(unmappings, 0);
}

TEST_F(X11WindowAlphaTest, ChangesNothingOnTheScreenWhenItIsSetToWhatItIs) {
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

}  // namespace
}  // namespace roomlattice::tests
