#include "platform/linux/appearance/PortalAppearance.h"

#include "tests/linux/session/BusFixture.h"

namespace roomlattice::tests {
namespace {

using platform::Appearance;
using platform::linux::MessageBus;
using platform::linux::PortalAppearance;

struct OddValue {
  const char* name;
  void (*write)(sd_bus_message*);
};

class PortalAppearanceOfAnOddPortalTest : public BusTest, public ::testing::WithParamInterface<OddValue> {
 protected:
  FakeService portal_{daemon_.address(), "org.freedesktop.portal.Desktop"};
  MessageBus bus_{MessageBus::Kind::Session};
};

TEST_P(PortalAppearanceOfAnOddPortalTest, TellsNothingUntilItMakesSense) {
  portal_.answerWith(GetParam().write);
  const PortalAppearance appearance(bus_, [] {});
  const auto tell = [&](const WriteArguments& value) {
    portal_.emit("/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged",
                 [&](sd_bus_message* signal) {
                   sd_bus_message_append(signal, "ss", "org.freedesktop.appearance", "color-scheme");
                   value(signal);
                 });
  };
  const auto tellDark = [&] {
    tell([](sd_bus_message* signal) { sd_bus_message_append(signal, "v", "u", 1U); });
    return appearance.preference().has_value();
  };
  ASSERT_TRUE(waitFor(tellDark));
  EXPECT_EQ(appearance.preference(), Appearance::Dark);
  EXPECT_FALSE(appearance.accentColor());
  tell(GetParam().write);
  EXPECT_TRUE(waitFor([&] { return !appearance.preference(); }));
  EXPECT_TRUE(waitFor(tellDark));
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, PortalAppearanceOfAnOddPortalTest,
    ::testing::Values(
        OddValue{"Nothing", [](sd_bus_message*) {}},
        OddValue{"Text", [](sd_bus_message* m) { sd_bus_message_append(m, "v", "s", "dark"); }},
        OddValue{"SignedNumber", [](sd_bus_message* m) { sd_bus_message_append(m, "v", "i", 1); }},
        OddValue{"Array", [](sd_bus_message* m) { sd_bus_message_append(m, "v", "au", 1, 1U); }},
        OddValue{"ArrayOfReals", [](sd_bus_message* m) { sd_bus_message_append(m, "v", "ad", 3, 0.1, 0.2, 0.3); }},
        OddValue{"TwoComponents", [](sd_bus_message* m) { sd_bus_message_append(m, "v", "(dd)", 0.1, 0.2); }},
        OddValue{"Dictionary", [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "value", "u", 1U); }}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace roomlattice::tests
