#include "platform/linux/bus/BusMessage.h"

#include "platform/linux/bus/MessageBus.h"
#include "tests/linux/session/BusFixture.h"

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::linux::BusMessage;
using platform::linux::MessageBus;

using Entry = std::tuple<std::uint32_t, std::string, std::string>;

class BusMessageTest : public BusTest {
 protected:
  /// A message that holds these arguments.
  BusMessage message(WriteArguments arguments) {
    service_.answerWith(std::move(arguments));
    auto answer =
        bus_.callAndWait({.service = "test.Service", .path = "/test", .interface = "test.Test", .method = "Ask"}, 10s);
    EXPECT_TRUE(answer);
    return std::move(*answer);
  }

  FakeService service_{daemon_.address(), "test.Service"};
  MessageBus bus_{MessageBus::Kind::Session};
};

TEST_F(BusMessageTest, GivesArgumentsByPlaceAndType) {
  const BusMessage read = message([](sd_bus_message* m) { sd_bus_message_append(m, "bsud", 1, "text", 7U, 0.5); });
  EXPECT_EQ(read.argument<double>(3), 0.5);
  EXPECT_EQ(read.argument<bool>(0), true);
  EXPECT_EQ(read.argument<std::string>(1), "text");
  EXPECT_EQ(read.argument<std::uint32_t>(2), 7U);
  EXPECT_FALSE(read.argument<bool>(4));
  EXPECT_FALSE(read.argument<std::string>(0));
  EXPECT_FALSE(read.argument<double>(2));
  EXPECT_FALSE(read.isError());
}

TEST_F(BusMessageTest, TakesValuesOutOfVariants) {
  const BusMessage read =
      message([](sd_bus_message* m) { sd_bus_message_append(m, "vv", "v", "v", "u", 7U, "(ddd)", 0.25, 0.5, 1.0); });
  EXPECT_EQ(read.argument<std::uint32_t>(0), 7U);
  EXPECT_EQ((read.argument<std::tuple<double, double, double>>(1)), std::tuple(0.25, 0.5, 1.0));
}

TEST_F(BusMessageTest, GivesPropertiesByKey) {
  const BusMessage read = message([](sd_bus_message* m) {
    sd_bus_message_append(m, "a{sv}", 3, "rows", "u", 1U, "desktops", "a(uss)", 2, 1U, "b", "two", 0U, "a", "one",
                          "current", "s", "a");
  });
  EXPECT_EQ(read.property<std::vector<Entry>>("desktops"), (std::vector{Entry(1, "b", "two"), Entry(0, "a", "one")}));
  EXPECT_EQ(read.property<std::string>("current"), "a");
  EXPECT_EQ(read.property<std::uint32_t>("rows"), 1U);
  EXPECT_FALSE(read.property<std::string>("rows"));
  EXPECT_FALSE(read.property<std::string>("other"));
}

TEST_F(BusMessageTest, GivesAnEmptyArray) {
  const BusMessage read = message([](sd_bus_message* m) { sd_bus_message_append(m, "a(uss)", 0); });
  EXPECT_EQ(read.argument<std::vector<Entry>>(0), std::vector<Entry>());
}

struct OddMessage {
  const char* name;
  void (*write)(sd_bus_message*);
};

class BusMessageOddTest : public BusMessageTest, public ::testing::WithParamInterface<OddMessage> {};

TEST_P(BusMessageOddTest, HaveNothingThatIsAskedFor) {
  const BusMessage read = message(GetParam().write);
  EXPECT_FALSE(read.property<std::vector<Entry>>("desktops"));
  EXPECT_FALSE(read.property<std::string>("desktops"));
  EXPECT_FALSE(read.argument<std::vector<Entry>>(0));
  EXPECT_FALSE(read.argument<std::string>(0));
  EXPECT_FALSE(read.argument<bool>(0));
  EXPECT_FALSE((read.argument<std::tuple<double, double, double>>(0)));
  EXPECT_FALSE(read.argument<std::string>(1));
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, BusMessageOddTest,
    ::testing::Values(
        OddMessage{"Empty", [](sd_bus_message*) {}},
        OddMessage{"Integer", [](sd_bus_message* m) { sd_bus_message_append(m, "i", 1); }},
        OddMessage{"Path", [](sd_bus_message* m) { sd_bus_message_append(m, "o", "/desktops"); }},
        OddMessage{"DictionaryOfTexts",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "a{ss}", 1, "desktops", "a"); }},
        OddMessage{"DictionaryOfNumbers",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "a{su}", 1, "desktops", 1U); }},
        OddMessage{"DictionaryWithNumbersForKeys",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "a{uv}", 1, 1U, "s", "desktops"); }},
        OddMessage{"EmptyDictionary", [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 0); }},
        OddMessage{"Structure", [](sd_bus_message* m) { sd_bus_message_append(m, "(sv)", "desktops", "s", "a"); }},
        OddMessage{"ArrayOfVariants",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "av", 2, "s", "desktops", "s", "a"); }},
        OddMessage{"ArrayOfArrays", [](sd_bus_message* m) { sd_bus_message_append(m, "aas", 1, 1, "desktops"); }},
        OddMessage{"DictionaryInAVariant",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "v", "a{sv}", 1, "desktops", "i", 1); }},
        OddMessage{
            "EntriesOfAnotherType",
            [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "desktops", "a(iss)", 1, 1, "a", "one"); }},
        OddMessage{"EntriesThatAreShort",
                   [](sd_bus_message* m) { sd_bus_message_append(m, "a{sv}", 1, "desktops", "a(us)", 1, 1U, "a"); }},
        OddMessage{"DeepVariants",
                   [](sd_bus_message* m) {
                     for (int depth = 0; depth < 40; ++depth) {
                       sd_bus_message_open_container(m, 'v', depth < 39 ? "v" : "y");
                     }
                     sd_bus_message_append(m, "y", 1);
                     for (int depth = 0; depth < 40; ++depth) {
                       sd_bus_message_close_container(m);
                     }
                   }}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace roomlattice::tests
