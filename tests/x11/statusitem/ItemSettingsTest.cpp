#include "platform/x11/statusitem/ItemSettings.h"

#include "platform/linux/storage/LinuxDefaults.h"

#include <gtest/gtest.h>
#include <limits>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::x11::Edge;
using platform::x11::EdgePlace;
using platform::x11::EdgeUse;
using platform::x11::ItemPlace;
using platform::x11::ItemSettings;

class ItemSettingsTest : public ::testing::Test {
 protected:
  platform::linux::LinuxDefaults defaults_{std::nullopt, [](const std::string&) {}};
  ItemSettings settings_{defaults_};
};

TEST_F(ItemSettingsTest, HaveTheirDefaults) {
  EXPECT_EQ(settings_.place(), ItemPlace::Panel);
  EXPECT_EQ(settings_.edgeUse(), EdgeUse::Shared);
  EXPECT_EQ(settings_.floatingPlace(), (EdgePlace{Edge::Top, 0.5}));
}

TEST_F(ItemSettingsTest, KeepWhatIsStored) {
  for (const ItemPlace place : {ItemPlace::Both, ItemPlace::Floating, ItemPlace::Panel}) {
    settings_.setPlace(place);
    EXPECT_EQ(settings_.place(), place);
  }
  settings_.setEdgeUse(EdgeUse::KeptFree);
  EXPECT_EQ(settings_.edgeUse(), EdgeUse::KeptFree);
  for (const Edge edge : {Edge::Bottom, Edge::Left, Edge::Right, Edge::Top}) {
    settings_.setFloatingPlace({edge, 0.25});
    EXPECT_EQ(settings_.floatingPlace(), (EdgePlace{edge, 0.25}));
  }
}

TEST_F(ItemSettingsTest, TakeNothingThatMakesNoSense) {
  for (const Value& nonsense : {Value("nowhere"), Value(7), Value(std::numeric_limits<double>::quiet_NaN())}) {
    defaults_.set("StatusItem.Place", nonsense);
    defaults_.set("StatusItem.KeepEdgeFree", nonsense);
    defaults_.set("StatusItem.Edge", nonsense);
    EXPECT_EQ(settings_.place(), ItemPlace::Panel);
    EXPECT_EQ(settings_.edgeUse(), EdgeUse::Shared);
    EXPECT_EQ(settings_.floatingPlace().edge, Edge::Top);
  }
  defaults_.set("StatusItem.AlongEdge", 7.0);
  EXPECT_EQ(settings_.floatingPlace().along, 1.0);
  defaults_.set("StatusItem.AlongEdge", "left");
  EXPECT_EQ(settings_.floatingPlace().along, 0.5);
}

}  // namespace
}  // namespace roomlattice::tests
