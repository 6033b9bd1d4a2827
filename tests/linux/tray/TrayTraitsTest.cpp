#include "platform/linux/tray/TrayTraits.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::trayTraitsOf;

TEST(TrayTraitsTest, KnowsThePanelsThatCountTheWheelDownwards) {
  for (const char* panel : {"xfce4-panel", "panel-6-systray", "panel-12-systra", "wrapper-2.0", "waybar"}) {
    EXPECT_TRUE(trayTraitsOf(panel).countsScrollingDown) << panel;
  }
  for (const char* panel :
       {"mate-panel", "notification-ar", "lxqt-panel", "kded6", "gnome-shell", "panel-6-pager", ""}) {
    EXPECT_FALSE(trayTraitsOf(panel).countsScrollingDown) << panel;
  }
}

}  // namespace
}  // namespace roomlattice::tests
