#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/Properties.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/ProgramSession.h"
#include "tests/x11/session/ScreenImage.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

constexpr int screenWidth = 1280;
constexpr int screenHeight = 800;
constexpr QPoint center(screenWidth / 2, screenHeight / 2);
constexpr QPoint corner(0, 0);
constexpr double swipeAlpha = 0.78;

bool isClose(double a, double b) {
  return std::abs(a - b) < 0.005;
}

/// What other programs see of a tour. Events wait until they are taken, so that none is missed.
class TourWitness {
 public:
  explicit TourWitness(ProgramSession& user) : user_(user) {
    user.connection().selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    changes_ = user.connection().observe(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      switches_ += change.atom == user_.connection().ewmh()->_NET_CURRENT_DESKTOP ? 1 : 0;
    });
  }

  void look() {
    user_.connection().deliverEvents();
    const std::vector<xcb_window_t> own = user_.windows().all();
    tookFocus_ = tookFocus_ || std::ranges::find(own, focusedWindow(user_.connection())) != own.end();
    for (const WindowProbe& window : user_.windows().seen(0.9)) {
      sawOverlay_ = sawOverlay_ || window.desktop() == platform::x11::allDesktops;
    }
  }

  int switches() const { return switches_; }
  bool tookFocus() const { return tookFocus_; }
  bool sawOverlay() const { return sawOverlay_; }

 private:
  ProgramSession& user_;
  int switches_ = 0;
  bool tookFocus_ = false;
  bool sawOverlay_ = false;
  platform::Registration changes_;
};

class ProgramLabelsUnderTest : public ::testing::TestWithParam<Desktop> {
 protected:
  /// Whether the desktop has one label that is as a label has to be.
  bool hasLabelInOrder(int desktop) {
    const std::vector<WindowProbe> labels = user_.windows().labelsOn(static_cast<std::uint32_t>(desktop));
    if (labels.size() != 1) {
      return false;
    }
    const WindowProbe& label = labels.front();
    const std::optional<QRect> frame = label.geometry();
    const bool centered = frame && (frame->center() - center).manhattanLength() <= 2;
    // Xfwm4 has a layer of its own for notifications, and takes the state away.
    const bool above = GetParam().windowManager == WindowManagerKind::Xfwm4 || label.hasState("ABOVE");
    return centered && above && label.hasState("SKIP_TASKBAR") && label.hasState("SKIP_PAGER") && label.passesClicks();
  }

  double opacityOn(int desktop) {
    const std::vector<WindowProbe> labels = user_.windows().labelsOn(static_cast<std::uint32_t>(desktop));
    return labels.empty() ? -1.0 : opacityOf(labels.front());
  }

  /// The labels of all desktops but that one have that opacity.
  bool othersHaveOpacity(int active, double opacity) {
    for (int desktop = 0; desktop < 4; ++desktop) {
      if (desktop != active && !isClose(opacityOn(desktop), opacity)) {
        return false;
      }
    }
    return true;
  }

  /// Nothing of a label is on the screen, not even a plate without its text.
  bool screenIsClear(int active) {
    if (GetParam().windowManager == WindowManagerKind::KWin) {
      // What it composites depends on the machine, and so does what it leaves mapped.
      const std::vector<WindowProbe> labels = user_.windows().labelsOn(static_cast<std::uint32_t>(active));
      return std::ranges::all_of(labels, [](const WindowProbe& label) { return opacityOf(label) == 0.0; });
    }
    const bool isBlended = GetParam().compositing == Compositing::Picom;
    const std::optional<WindowProbe> label = user_.windows().viewable("NOTIFICATION");
    return similar(screenColor(user_.connection(), center), Qt::blue) &&
           (isBlended || !label || label->isCutToNothing());
  }

  ProgramSession user_{{.windowManager = GetParam().windowManager}, GetParam().compositing};
};

TEST_P(ProgramLabelsUnderTest, AreOnEveryDesktopAfterATourThatEndsWhereItBegan) {
  ASSERT_TRUE(user_.switchTo(1));
  PlainWindow application({100, 550, 300, 150}, Qt::green);
  TourWitness witness(user_);
  ASSERT_TRUE(user_.start()) << user_.program().process().errorOutput();
  ASSERT_TRUE(waitFor([&] {
    witness.look();
    return user_.program().process().errorOutput().find("tour end") != std::string::npos;
  }));
  witness.look();
  // To the last, to the first, and back.
  EXPECT_EQ(witness.switches(), 2 + 3 + 1);
  EXPECT_TRUE(user_.isOnDesktop(1));
  EXPECT_TRUE(witness.sawOverlay());
  EXPECT_FALSE(witness.tookFocus());
  EXPECT_TRUE(waitFor([&] { return application.hasFocus(); }));
  EXPECT_TRUE(waitFor([&] { return user_.windows().overlaysEverywhere().empty(); }));
  for (const int active : {1, 2, 1}) {
    ASSERT_TRUE(user_.switchTo(active));
    EXPECT_TRUE(waitFor([&] { return screenIsClear(active); })) << active;
    for (int desktop = 0; desktop < 4; ++desktop) {
      EXPECT_TRUE(desktop == active || waitFor([&] { return hasLabelInOrder(desktop); })) << desktop;
    }
  }
}

TEST_P(ProgramLabelsUnderTest, FollowWhatTheUserDoes) {
  ASSERT_TRUE(user_.startAndTour()) << user_.program().process().errorOutput();
  ASSERT_TRUE(waitFor([&] { return othersHaveOpacity(0, swipeAlpha); }));

  // A switch moves the status item's title on and fades the label of the desktop in front out.
  const WindowProbe arriving = user_.windows().labelsOn(2).at(0);
  int steps = 0;
  const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(user_.connection().raw(), arriving.id(), XCB_CW_EVENT_MASK, &mask);
  const auto observation = user_.connection().observe(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    const bool faded = change.atom == user_.connection().atom("_NET_WM_WINDOW_OPACITY");
    steps += change.window == arriving.id() && faded ? 1 : 0;
  });
  ASSERT_TRUE(user_.switchTo(2));
  EXPECT_TRUE(waitFor([&] { return similar(user_.statusItemColor().value_or(Qt::black), defaultColorOf(2)); }));
  EXPECT_TRUE(waitFor([&] { return opacityOf(arriving) == 0.0; }));
  EXPECT_TRUE(waitFor([&] { return screenIsClear(2); }));
  user_.connection().deliverEvents();
  if (GetParam().compositing == Compositing::Picom) {
    // However few a busy machine lets it have.
    EXPECT_GT(steps, 1);
  } else if (GetParam().windowManager != WindowManagerKind::KWin) {
    // Without a compositor nothing fades, and a label that has come goes at the end. KWin may be one.
    EXPECT_EQ(steps, 1);
  }

  // The corner shows those of all other desktops, and the pointer sends them away.
  user_.movePointerTo(corner);
  EXPECT_TRUE(waitFor([&] { return othersHaveOpacity(2, 1.0); }));
  user_.movePointerTo(center);
  EXPECT_TRUE(waitFor([&] { return othersHaveOpacity(2, swipeAlpha); }));

  // Those of desktops that vanish go with them; a new desktop has one once it was in front.
  user_.session.setDesktopCount(2);
  EXPECT_TRUE(waitFor([&] { return user_.windows().labels().size() == 2; }));
  EXPECT_TRUE(waitFor([&] { return user_.isOnDesktop(1); })) << user_.session.currentDesktop().value_or(-1);
  user_.session.setDesktopCount(3);
  ASSERT_TRUE(user_.switchTo(2));
  EXPECT_TRUE(waitFor([&] { return hasLabelInOrder(1); }));
  // A desktop that was in front for so short that the program has not seen it there has no label yet.
  EXPECT_TRUE(waitFor([&] { return similar(user_.statusItemColor().value_or(Qt::black), defaultColorOf(2)); }));
  ASSERT_TRUE(user_.switchTo(0));
  EXPECT_TRUE(waitFor([&] { return hasLabelInOrder(1) && hasLabelInOrder(2); }));
  EXPECT_TRUE(waitFor([&] { return similar(user_.statusItemColor().value_or(Qt::black), defaultColorOf(0)); }));
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ProgramLabelsUnderTest,
                         ::testing::Values(Desktop{WindowManagerKind::Openbox, Compositing::None},
                                           Desktop{WindowManagerKind::Openbox, Compositing::Picom},
                                           Desktop{WindowManagerKind::Xfwm4, Compositing::None},
                                           Desktop{WindowManagerKind::Xfwm4, Compositing::Picom},
                                           Desktop{WindowManagerKind::KWin, Compositing::None}),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests
