#include "control/DesktopLookup.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::CommandError;
using platform::CommandErrorKind;
using platform::DesktopState;
using ::testing::HasSubstr;

const std::vector<DesktopState> desktops{{.number = 1, .name = "Mail", .uuid = "a"},
                                         {.number = 2, .name = "Mailing lists", .uuid = "b"},
                                         {.number = std::nullopt, .name = "Film", .uuid = "c"},
                                         {.number = 3, .name = "2", .uuid = "d"},
                                         {.number = 4, .name = "2024", .uuid = "e"},
                                         {.number = 5, .name = "Größe", .uuid = "f"},
                                         {.number = 6, .name = "web", .uuid = "g"},
                                         {.number = 7, .name = "Web", .uuid = "h"},
                                         {.number = 8, .name = "WORLD", .uuid = "mail"}};

struct Row {
  std::string text;
  std::size_t index;
};

class DesktopLookupFoundTest : public ::testing::TestWithParam<Row> {};

TEST_P(DesktopLookupFoundTest, IsTheOneMeant) {
  const auto found = findDesktop(GetParam().text, desktops);
  ASSERT_TRUE(std::holds_alternative<std::size_t>(found)) << std::get<CommandError>(found).message;
  EXPECT_EQ(std::get<std::size_t>(found), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(ByAllThatIdentifiesIt, DesktopLookupFoundTest,
                         ::testing::Values(Row{"1", 0}, Row{"2", 1}, Row{"8", 8}, Row{"b", 1}, Row{"Mail", 0},
                                           Row{"mail", 8}, Row{"MAIL", 0}, Row{"Mailing", 1}, Row{"mailing L", 1},
                                           Row{"2024", 4}, Row{"20", 4}, Row{"Grö", 5}, Row{"gr", 5}, Row{"web", 6},
                                           Row{"w", 6}, Row{"Web", 7}, Row{"wor", 8}));

struct Refusal {
  std::string text;
  CommandErrorKind kind;
  std::vector<std::string> candidates;
};

const std::vector<std::string> all{"a", "b", "d", "e", "f", "g", "h", "mail"};

class DesktopLookupRefusedTest : public ::testing::TestWithParam<Refusal> {};

TEST_P(DesktopLookupRefusedTest, ListsTheCandidates) {
  const auto found = findDesktop(GetParam().text, desktops);
  ASSERT_TRUE(std::holds_alternative<CommandError>(found));
  const auto& error = std::get<CommandError>(found);
  EXPECT_EQ(error.kind, GetParam().kind);
  EXPECT_THAT(error.message, HasSubstr("'" + GetParam().text + "'"));
  std::vector<std::string> candidates;
  for (const DesktopState& candidate : error.candidates) {
    candidates.push_back(candidate.uuid);
    EXPECT_THAT(error.message, HasSubstr(std::to_string(candidate.number.value()) + " " + candidate.name));
  }
  EXPECT_EQ(candidates, GetParam().candidates);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, DesktopLookupRefusedTest,
                         ::testing::Values(Refusal{"WEB", CommandErrorKind::AmbiguousDesktop, {"g", "h"}},
                                           Refusal{"Mai", CommandErrorKind::AmbiguousDesktop, {"a", "b"}},
                                           Refusal{"W", CommandErrorKind::AmbiguousDesktop, {"h", "mail"}},
                                           Refusal{"", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"0", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"-1", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"9", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"01", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"99999999999999999999", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"\xff", CommandErrorKind::NoSuchDesktop, all},
                                           Refusal{"Film", CommandErrorKind::FullScreenDesktop, all},
                                           Refusal{"c", CommandErrorKind::FullScreenDesktop, all},
                                           Refusal{"Fil", CommandErrorKind::NoSuchDesktop, all}));

TEST(DesktopLookupTest, TakesANumberForThatRatherThanForTheUuidOfAnother) {
  const auto found = findDesktop("2", {{.number = 1, .name = "Mail", .uuid = "2"}, {.number = 2, .name = "Web"}});
  EXPECT_EQ(std::get<std::size_t>(found), 1U);
}

TEST(DesktopLookupTest, KnowsEachOfSeveralFullScreenSpaces) {
  const std::vector<DesktopState> spaces{{.name = "Film", .uuid = "a"}, {.name = "Slides", .uuid = "b"}};
  for (const char* text : {"Film", "Slides", "a", "b"}) {
    EXPECT_EQ(std::get<CommandError>(findDesktop(text, spaces)).kind, CommandErrorKind::FullScreenDesktop) << text;
  }
}

TEST(DesktopLookupTest, HasNoCandidatesWhereThereIsNoDesktop) {
  const auto found = findDesktop("1", {});
  ASSERT_TRUE(std::holds_alternative<CommandError>(found));
  EXPECT_EQ(std::get<CommandError>(found).message, "no desktop is called '1'");
}

}  // namespace
}  // namespace roomlattice::tests
