#include "platform/linux/ctl/CtlArguments.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::linux::CtlArguments;
using platform::linux::CtlCommand;
using platform::linux::CtlInformation;
using platform::linux::CtlUsageError;
using platform::linux::parseCtlArguments;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Words = std::vector<std::string>;

CtlArguments parsed(const Words& words) {
  const auto result = parseCtlArguments(words);
  EXPECT_TRUE(std::holds_alternative<CtlArguments>(result)) << words.front();
  return std::holds_alternative<CtlArguments>(result) ? std::get<CtlArguments>(result) : CtlArguments();
}

TEST(CtlArgumentsTest, NameTheCommandAndItsOperands) {
  EXPECT_EQ(parsed({"list"}).command, CtlCommand::List);
  EXPECT_THAT(parsed({"list"}).operands, IsEmpty());
  EXPECT_EQ(parsed({"quit"}).command, CtlCommand::Quit);
  EXPECT_THAT(parsed({"switch", "two words"}).operands, ElementsAre("two words"));
  EXPECT_THAT(parsed({"rename", ""}).operands, ElementsAre(""));
  EXPECT_THAT(parsed({"rename", "2", "Mail"}).operands, ElementsAre("2", "Mail"));
}

TEST(CtlArgumentsTest, HaveOptionsAnywhere) {
  EXPECT_TRUE(parsed({"--json", "list"}).json);
  EXPECT_TRUE(parsed({"watch", "--json"}).json);
  EXPECT_EQ(parsed({"watch", "--format=polybar"}).format, "polybar");
  EXPECT_EQ(parsed({"watch", "--format", "{name}"}).format, "{name}");
  EXPECT_EQ(parsed({"--display=:1", "list"}).display, ":1");
  EXPECT_EQ(parsed({"list"}).display, std::nullopt);
}

TEST(CtlArgumentsTest, TakeWhatFollowsTwoDashesForWords) {
  EXPECT_THAT(parsed({"switch", "--", "--json"}).operands, ElementsAre("--json"));
  EXPECT_THAT(parsed({"rename", "-"}).operands, ElementsAre("-"));
}

TEST(CtlArgumentsTest, AskForHelpAndVersionBeforeAnythingElse) {
  for (const Words& words : {Words{"--help"}, Words{"-h"}, Words{"nonsense", "--help"}}) {
    EXPECT_EQ(std::get<CtlInformation>(parseCtlArguments(words)), CtlInformation::Help);
  }
  EXPECT_EQ(std::get<CtlInformation>(parseCtlArguments({"--version"})), CtlInformation::Version);
}

struct Wrong {
  Words words;
  std::string reason;
};

class CtlArgumentsWrongTest : public ::testing::TestWithParam<Wrong> {};

TEST_P(CtlArgumentsWrongTest, AreRefusedWithTheReason) {
  const auto result = parseCtlArguments(GetParam().words);
  ASSERT_TRUE(std::holds_alternative<CtlUsageError>(result));
  EXPECT_THAT(std::get<CtlUsageError>(result).reason, HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, CtlArgumentsWrongTest,
                         ::testing::Values(Wrong{{}, "no command"}, Wrong{{"explode"}, "explode"},
                                           Wrong{{"List"}, "List"}, Wrong{{"list", "all"}, "too many"},
                                           Wrong{{"switch"}, "too few"}, Wrong{{"switch", "1", "2"}, "too many"},
                                           Wrong{{"rename"}, "too few"}, Wrong{{"rename", "1", "2", "3"}, "too many"},
                                           Wrong{{"labels"}, "too few"}, Wrong{{"labels", "blink"}, "blink"},
                                           Wrong{{"next", "--json"}, "--json"},
                                           Wrong{{"list", "--format=polybar"}, "--format"},
                                           Wrong{{"watch", "--format=nonsense"}, "nonsense"},
                                           Wrong{{"watch", "--format"}, "--format"},
                                           Wrong{{"watch", "--json", "--format=polybar"}, "exclude"},
                                           Wrong{{"list", "--jsn"}, "--jsn"}, Wrong{{"list", "-j"}, "-j"}));

}  // namespace
}  // namespace roomlattice::tests
