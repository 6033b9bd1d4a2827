#include "platform/x11/statusitem/ItemOptions.h"

#include "platform/linux/storage/LinuxDefaults.h"
#include "support/InProcessNotificationCenter.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::linux::ExportedItem;
using platform::x11::EdgeUse;
using platform::x11::ItemOptions;
using platform::x11::ItemPlace;
using platform::x11::ItemPlacement;
using platform::x11::ItemSettings;
using platform::x11::X11DesktopNames;

class ItemOptionsTest : public ::testing::Test {
 protected:
  ExportedItem item(const std::string& title) {
    const std::vector<ExportedItem> items = options_.items();
    const auto found = std::ranges::find(items, title, &ExportedItem::title);
    return found == items.end() ? ExportedItem() : *found;
  }

  bool isOn(const std::string& title) {
    const ExportedItem found = item(title);
    return found.mark && found.mark->isOn;
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  platform::linux::MessageBus bus_{platform::linux::MessageBus::Kind::Session};
  platform::linux::TrayWatch tray_{bus_};
  platform::linux::LinuxDefaults defaults_{std::nullopt, [](const std::string&) {}};
  ItemSettings settings_{defaults_};
  int placeChanges_ = 0;
  int otherChanges_ = 0;
  ItemPlacement placement_{settings_, tray_, [this] { ++placeChanges_; }};
  InProcessNotificationCenter center_;
  platform::x11::WindowManagerWatch windowManager_{qt_.connection()};
  platform::x11::X11Desktops desktops_{qt_.connection(), bus_, windowManager_, center_};
  X11DesktopNames desktopNames_{desktops_, defaults_, center_};
  ItemOptions options_{placement_, settings_, desktopNames_, [this] { ++otherChanges_; }};
};

TEST_F(ItemOptionsTest, MarkThePlaceThatIsChosen) {
  EXPECT_TRUE(isOn("In the Panel"));
  item("Floating").activate();
  EXPECT_TRUE(isOn("Floating"));
  EXPECT_FALSE(isOn("In the Panel"));
  EXPECT_EQ(settings_.place(), ItemPlace::Floating);
  EXPECT_EQ(placeChanges_, 1);
}

TEST_F(ItemOptionsTest, SwitchTheEdgeToAndFro) {
  EXPECT_FALSE(isOn("Keep the Edge Free"));
  item("Keep the Edge Free").activate();
  EXPECT_TRUE(isOn("Keep the Edge Free"));
  EXPECT_EQ(settings_.edgeUse(), EdgeUse::KeptFree);
  item("Keep the Edge Free").activate();
  EXPECT_EQ(settings_.edgeUse(), EdgeUse::Shared);
  EXPECT_EQ(otherChanges_, 2);
}

TEST_F(ItemOptionsTest, SwitchTheSharingOfNamesToAndFro) {
  EXPECT_TRUE(isOn("Share Names with the Window Manager"));
  item("Share Names with the Window Manager").activate();
  EXPECT_FALSE(isOn("Share Names with the Window Manager"));
  EXPECT_EQ(desktopNames_.sharing(), X11DesktopNames::Sharing::Off);
  item("Share Names with the Window Manager").activate();
  EXPECT_EQ(desktopNames_.sharing(), X11DesktopNames::Sharing::On);
  EXPECT_EQ(otherChanges_, 2);
}

TEST_F(ItemOptionsTest, WriteAndRemoveTheEntryThatStartsTheProgramWithTheSession) {
  const std::filesystem::path entry = session_.configFolder() / "autostart" / "roomlattice.desktop";
  EXPECT_FALSE(isOn("Start with the Session"));
  item("Start with the Session").activate();
  EXPECT_TRUE(std::filesystem::exists(entry));
  EXPECT_TRUE(isOn("Start with the Session"));
  item("Start with the Session").activate();
  EXPECT_FALSE(std::filesystem::exists(entry));
}

}  // namespace
}  // namespace roomlattice::tests
