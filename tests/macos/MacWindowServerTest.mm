#import "platform/macos/MacWindowServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <string_view>

#include "tests/macos/supplement/SpaceServer.h"

namespace roomlattice::platform::macos {
namespace {

using gnustep::SpaceServer;

class MacWindowServerTest : public testing::Test {
 protected:
  MacWindowServerTest() {
    server_.reset();
    server_.spaces = {{.identifier = 3, .uuid = "mail"}, {.identifier = 7, .uuid = "film", .type = 4}};
    server_.active = 7;
  }

  SpaceServer& server_ = SpaceServer::shared();
};

TEST_F(MacWindowServerTest, GivesTheDisplaysAsTheWindowServerHasThem) {
  const Value::Dictionary mail{{"ManagedSpaceID", 3}, {"id64", 3}, {"uuid", "mail"}, {"type", 0}};
  const Value::Dictionary film{{"ManagedSpaceID", 7}, {"id64", 7}, {"uuid", "film"}, {"type", 4}};
  const Value::Dictionary display{{"Display Identifier", "Main"}, {"Spaces", Value::Array{mail, film}}};
  EXPECT_EQ(MacWindowServer().managedDisplaySpaces(), Value(Value::Array{display}));
}

TEST_F(MacWindowServerTest, ReleasesTheAnswerItOwns) {
  const int before = SpaceServer::liveAnswers();
  MacWindowServer().managedDisplaySpaces();
  EXPECT_EQ(SpaceServer::liveAnswers(), before);
}

TEST_F(MacWindowServerTest, TellsTheActiveSpace) {
  EXPECT_EQ(MacWindowServer().activeSpace(), 7U);
}

TEST_F(MacWindowServerTest, AttachesWindowsToSpacesAndDetachesThem) {
  MacWindowServer server;
  server.addWindowToSpace(41, 3);
  server.addWindowToSpace(41, 7);
  server.removeWindowFromSpace(41, 7);
  EXPECT_THAT(server_.windows.at(41), testing::ElementsAre(3U));
}

template <char const* Missing>
MacWindowServer without() {
  return MacWindowServer(WindowServerFunctions::load(
      [](const char* name) { return std::string_view(name) == Missing ? nullptr : dlsym(RTLD_DEFAULT, name); }));
}

constexpr char connection[] = "CGSMainConnectionID";
constexpr char copySpaces[] = "CGSCopyManagedDisplaySpaces";
constexpr char activeSpace[] = "CGSGetActiveSpace";
constexpr char addWindows[] = "CGSAddWindowsToSpaces";
constexpr char removeWindows[] = "CGSRemoveWindowsFromSpaces";

TEST_F(MacWindowServerTest, GivesANullWithoutAListOfSpaces) {
  EXPECT_TRUE(without<copySpaces>().managedDisplaySpaces().isNull());
  EXPECT_TRUE(without<connection>().managedDisplaySpaces().isNull());
}

TEST_F(MacWindowServerTest, GivesZeroWithoutAnActiveSpace) {
  EXPECT_EQ(without<activeSpace>().activeSpace(), 0U);
  EXPECT_EQ(without<connection>().activeSpace(), 0U);
}

TEST_F(MacWindowServerTest, IgnoresAttachmentsThatCannotBeMade) {
  without<addWindows>().addWindowToSpace(41, 3);
  without<connection>().addWindowToSpace(41, 3);
  EXPECT_TRUE(server_.windows.empty());
  MacWindowServer().addWindowToSpace(41, 3);
  without<removeWindows>().removeWindowFromSpace(41, 3);
  EXPECT_THAT(server_.windows.at(41), testing::ElementsAre(3U));
}

TEST_F(MacWindowServerTest, HandsOnAnswersOfAnotherShape) {
  server_.givenAnswer = "(1, {Spaces = none;})";
  EXPECT_EQ(MacWindowServer().managedDisplaySpaces(), Value(Value::Array{"1", Value::Dictionary{{"Spaces", "none"}}}));
}

}  // namespace
}  // namespace roomlattice::platform::macos
