#include "spaces/NameExchange.h"

#include "tests/spaces/NameExchangeFixture.h"

namespace roomlattice::tests {
namespace {

using NameExchangeTest = NameExchangeFixture;

TEST_F(NameExchangeTest, ChangesNothingWhereThereAreNoNamesToShare) {
  keep(1, "Mail");
  begin();
  desktop.advance(5s);
  setName(2, "Web");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Web 3");
  EXPECT_EQ(desktop.names().wishes(), 0);
}

TEST_F(NameExchangeTest, StartsWithTheNamesThatDesktopsHaveThere) {
  callThere({"Mail", " Web ", "Chat"});
  begin();
  EXPECT_EQ(shown(), "Mail Web Chat");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Web Chat");
  EXPECT_EQ(desktop.names().wishes(), 0);
}

TEST_F(NameExchangeTest, KeepsNoneOfThemInTheSettings) {
  callThere({"Mail", "Web", "Chat"});
  begin();
  nameThere(1, "Letters");
  desktop.advance(5s);
  EXPECT_FALSE(desktop.storedDefaults().contains("SpaceNames"));
}

TEST_F(NameExchangeTest, TakesNumbersForNoNames) {
  callThere({"Workspace 1", "", "3"});
  begin();
  EXPECT_EQ(shown(), "1 2 3");
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"Workspace 1", "", "3"}));
}

TEST_F(NameExchangeTest, LetsTheNameThatIsKeptWinAtTheStart) {
  keep(2, "Web");
  callThere({"Mail", "News", "Workspace 3"});
  begin();
  EXPECT_EQ(shown(), "Mail Web 3");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Web 3");
  EXPECT_EQ(there(), (Texts{"Mail", "Web", "Workspace 3"}));
}

TEST_F(NameExchangeTest, GivesANameThatIsKeptToTheEnvironmentASecondAfterTheStart) {
  keep(2, "Web");
  callThere({"Mail", "News", "Workspace 3"});
  begin();
  desktop.advance(1s - 1ns);
  EXPECT_EQ(desktop.names().wishes(), 0);
  desktop.advance(1ns);
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeTest, GivesItThoughAnotherDesktopIsRenamedMeanwhile) {
  keep(2, "Web");
  callThere({"Mail", "News", "Workspace 3"});
  begin();
  desktop.advance(500ms);
  setName(1, "Letters");
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"Letters", "Web", "Workspace 3"}));
}

TEST_F(NameExchangeTest, GivesItThoughTheEnvironmentHadNoneToShareMeanwhile) {
  keep(2, "Web");
  callThere({"Mail", "News", "Workspace 3"});
  begin();
  desktop.advance(500ms);
  desktop.names().replace(std::nullopt);
  callThere({"Mail", "News", "Workspace 3"});
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"Mail", "Web", "Workspace 3"}));
}

TEST_F(NameExchangeTest, TakesFewerAndMoreNamesThanDesktops) {
  desktop.names().replace(platform::DesktopNames::Names{{uuid(2), "Web"}, {"UUID-999", "Gone"}});
  begin();
  EXPECT_EQ(shown(), "1 Web 3");
}

TEST_F(NameExchangeTest, FollowsTheFirstNameOfADesktopAmongThoseOfOthers) {
  desktop.names().replace(platform::DesktopNames::Names{{"A", "Gone"}, {"B", "Gone"}, {"UUID-999", "Gone"}});
  begin();
  EXPECT_EQ(shown(), "1 2 3");
  nameThere(1, "Mail");
  EXPECT_EQ(shown(), "Mail 2 3");
}

TEST_F(NameExchangeTest, BringsARenameToTheEnvironment) {
  callThere({"Mail", "Workspace 2", "Workspace 3"});
  begin();
  setName(1, "Letters");
  setName(2, "Web");
  desktop.advance(0s);
  EXPECT_EQ(there(), (Texts{"Letters", "Web", "Workspace 3"}));
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Letters Web 3");
  EXPECT_EQ(desktop.names().wishes(), 2);
}

TEST_F(NameExchangeTest, FollowsARenameInTheEnvironment) {
  callThere({"Mail", "Workspace 2", "Workspace 3"});
  begin();
  nameThere(1, "Letters");
  EXPECT_EQ(shown(), "Letters 2 3");
  desktop.advance(5s);
  nameThere(3, "Chat");
  EXPECT_EQ(shown(), "Letters 2 Chat");
  nameThere(3, "Workspace 3");
  EXPECT_EQ(shown(), "Letters 2 3");
  desktop.advance(5s);
  EXPECT_EQ(desktop.names().wishes(), 0);
}

TEST_F(NameExchangeTest, ReplacesANameThatIsKeptByTheOneOfARename) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  desktop.advance(5s);
  nameThere(2, "News");
  EXPECT_EQ(shown(), "Mail News 3");
  EXPECT_EQ(desktop.storedDefaults()["SpaceNames"], platform::Value(platform::Value::Dictionary{{uuid(2), "News"}}));
  desktop.advance(5s);
  EXPECT_EQ(desktop.names().wishes(), 0);
}

TEST_F(NameExchangeTest, FollowsARenameThatComesRightAfterOneHere) {
  callThere({"Workspace 1", "Workspace 2", "Workspace 3"});
  begin();
  desktop.advance(5s);
  setName(1, "Mail");
  desktop.advance(0s);
  nameThere(1, "Letters");
  EXPECT_EQ(shown(), "Letters 2 3");
  desktop.advance(5s);
  EXPECT_EQ(there().front(), "Letters");
}

TEST_F(NameExchangeTest, FollowsRenamesOnBothSidesRightAfterTheStart) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  setName(2, "News");
  desktop.advance(0s);
  nameThere(2, "Chat");
  EXPECT_EQ(shown(), "Mail Chat 3");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Chat 3");
  EXPECT_EQ(there()[1], "Chat");
}

TEST_F(NameExchangeTest, FollowsSeveralRenamesAtOnce) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  desktop.advance(5s);
  callThere({"Letters", "News", "Chat"});
  EXPECT_EQ(shown(), "Letters News Chat");
}

TEST_F(NameExchangeTest, BringsTheDefaultBackThereForAnEmptyName) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  desktop.advance(5s);
  setName(1, "");
  setName(2, " ");
  EXPECT_EQ(shown(), "1 2 3");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "1 2 3");
  EXPECT_EQ(there(), (Texts{"Workspace 1", "Workspace 2", "Workspace 3"}));
}

TEST_F(NameExchangeTest, NumbersADesktopLikeThoseThatTheEnvironmentNumbers) {
  callThere({"", "Web", "Workspace 3"});
  begin();
  setName(2, "");
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"", "Workspace 2", "Workspace 3"}));
}

TEST_F(NameExchangeTest, NumbersDesktopsItselfWhereTheEnvironmentNumbersNone) {
  callThere({"Mail", "Web", "Chat"});
  begin();
  setName(2, "");
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"Mail", "Desktop 2", "Chat"}));
  EXPECT_EQ(shown(), "Mail 2 Chat");
}

TEST_F(NameExchangeTest, EndsTheNameThatIsKeptWhereItIsTakenAwayThere) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  desktop.advance(5s);
  nameThere(2, "Workspace 2");
  EXPECT_EQ(shown(), "Mail 2 3");
  EXPECT_EQ(desktop.storedDefaults()["SpaceNames"], platform::Value(platform::Value::Dictionary{}));
}

TEST_F(NameExchangeTest, EndsTheNameOfADesktopThatHasNoneThereAnyMore) {
  callThere({"Mail", "Web", "Chat"});
  begin();
  desktop.advance(5s);
  nameThere(1, "Letters");
  callThere({"Letters", "Web"});
  EXPECT_EQ(shown(), "Letters Web 3");
}

TEST_F(NameExchangeTest, ForgetsWhatItBorrowedWhenNothingIsSharedAnyMore) {
  keep(2, "Web");
  callThere({"Mail", "News", "Chat"});
  begin();
  desktop.advance(5s);
  desktop.names().replace(std::nullopt);
  EXPECT_EQ(shown(), "1 Web 3");
  callThere({"Mail", "News", "Chat"});
  EXPECT_EQ(shown(), "Mail Web Chat");
  desktop.advance(5s);
  EXPECT_EQ(there(), (Texts{"Mail", "Web", "Chat"}));
}

}  // namespace
}  // namespace roomlattice::tests
