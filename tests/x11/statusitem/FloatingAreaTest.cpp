#include "platform/x11/statusitem/FloatingArea.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QGuiApplication>
#include <gtest/gtest.h>
#include <optional>

namespace roomlattice::tests {
namespace {

using platform::x11::Edge;
using platform::x11::FloatingArea;
using platform::x11::Strut;

/// A server whose first monitor is the upper left quarter of its screen.
class FloatingAreaTest : public ::testing::Test {
 protected:
  FloatingAreaTest() {
    session_.changesMonitors();
    setMonitor("first", "640/300x400/200+0+0", "screen");
    EXPECT_TRUE(waitFor([this] { return area_.screen() == QRect(0, 0, 640, 400); }));
    EXPECT_TRUE(waitFor([this] { return atTheBottom_.has_value(); }));
  }

  void setMonitor(const char* name, const char* geometry, const char* output) {
    session_.run({"xrandr", "--setmonitor", name, geometry, output});
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  // What an item in the middle of the bottom edge had to reserve at the last change.
  std::optional<Strut> atTheBottom_;
  FloatingArea area_{qt_.connection(),
                     [this] { atTheBottom_ = area_.strutFor(Edge::Bottom, QRect(280, 376, 80, 24)); }};
};

TEST_F(FloatingAreaTest, ReservesAnEdgeUpToThatOfTheRootWindow) {
  EXPECT_EQ(area_.strutFor(Edge::Top, QRect(280, 0, 80, 24)),
            (Strut{.edge = Strut::Edge::Top, .depth = 24, .startX = 0, .endX = 639}));
  EXPECT_EQ(atTheBottom_, (Strut{.edge = Strut::Edge::Bottom, .depth = 424, .startX = 0, .endX = 639}));
}

TEST_F(FloatingAreaTest, ReservesNothingTowardsAnotherScreen) {
  setMonitor("below", "640/300x400/200+0+400", "none");
  EXPECT_TRUE(waitFor([this] { return !atTheBottom_; }));
  EXPECT_NE(area_.strutFor(Edge::Top, QRect(280, 0, 80, 24)), std::nullopt);
}

TEST_F(FloatingAreaTest, ReservesNothingTowardsAScreenThatIsOnlyPartlyBeyondTheEdge) {
  setMonitor("farther", "640/300x300/150+600+500", "none");
  EXPECT_TRUE(waitFor([this] { return !atTheBottom_; }));
}

TEST_F(FloatingAreaTest, ReservesAnEdgeBesideScreensThatAreNotBeyondIt) {
  setMonitor("beside", "640/300x800/400+640+0", "none");
  ASSERT_TRUE(waitFor([] { return QGuiApplication::screens().size() == 2; }));
  EXPECT_NE(area_.strutFor(Edge::Bottom, QRect(280, 376, 80, 24)), std::nullopt);
  EXPECT_NE(area_.strutFor(Edge::Top, QRect(280, 0, 80, 24)), std::nullopt);
}

}  // namespace
}  // namespace roomlattice::tests
