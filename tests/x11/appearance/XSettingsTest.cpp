#include "platform/x11/appearance/XSettings.h"

#include "tests/x11/appearance/XSettingsText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::parseXSettings;
using ::testing::Optional;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

class XSettingsTest : public ::testing::TestWithParam<std::endian> {};

TEST_P(XSettingsTest, GiveTheirTexts) {
  const std::string bytes = XSettingsText(GetParam())
                                .integer("Net/DoubleClickTime", 400)
                                .text("Net/ThemeName", "Adwaita-dark")
                                .color("Net/Color")
                                .text("Gtk/FontName", "")
                                .bytes();
  EXPECT_THAT(parseXSettings(bytes),
              Optional(UnorderedElementsAre(Pair("Net/ThemeName", "Adwaita-dark"), Pair("Gtk/FontName", ""))));
}

TEST_P(XSettingsTest, AreNothingWhenCutAnywhere) {
  const std::string bytes = XSettingsText(GetParam()).integer("A", 1).text("B", "b").color("C").bytes();
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    EXPECT_FALSE(parseXSettings(bytes.substr(0, length))) << length;
  }
}

TEST_P(XSettingsTest, AreNothingWithLengthsBeyondTheEnd) {
  EXPECT_FALSE(parseXSettings(XSettingsText(GetParam()).textOfLength("A", 0xffffffffU).bytes()));
  EXPECT_FALSE(parseXSettings(XSettingsText(GetParam()).textOfLength("A", 0x7fffffffU).bytes()));
}

INSTANTIATE_TEST_SUITE_P(InEitherByteOrder, XSettingsTest, ::testing::Values(std::endian::little, std::endian::big),
                         [](const auto& test) { return test.param == std::endian::little ? "Little" : "Big"; });

TEST(XSettingsTest, AreNothingInAnotherFormat) {
  EXPECT_FALSE(parseXSettings(std::string(12, '\x02')));
  EXPECT_FALSE(parseXSettings(std::string("\0\0\0\0\0\0\0\0\1\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0", 24)));
}

TEST(XSettingsTest, MayBeNone) {
  EXPECT_THAT(parseXSettings(std::string(12, '\0')), Optional(::testing::IsEmpty()));
}

}  // namespace
}  // namespace roomlattice::tests
