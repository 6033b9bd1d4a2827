#include "support/Installation.h"

#include "platform/simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform {
namespace {

std::vector<std::string> events;

class Library {
 public:
  explicit Library(Platform& platform) : platform_(platform) { events.emplace_back("library made"); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() { events.emplace_back("library ended"); }

  Platform& platform() { return platform_; }

 private:
  Platform& platform_;
};

/// Needs another shared instance from its making to its end.
class Reader {
 public:
  explicit Reader(Platform&) {
    Installation::current().shared<Library>();
    events.emplace_back("reader made");
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() {
    Installation::current().shared<Library>();
    events.emplace_back("reader ended");
  }
};

class InstallationTest : public ::testing::Test {
 protected:
  InstallationTest() { events.clear(); }

  simulated::SimulatedDesktop desktop_;
  simulated::SimulatedPlatform platform_{desktop_};
  std::optional<Installation> installation_{std::in_place, platform_};
};

TEST_F(InstallationTest, IsTheCurrentOne) {
  EXPECT_EQ(&Installation::current(), &*installation_);
  EXPECT_EQ(&Installation::current().platform(), &platform_);
}

TEST_F(InstallationTest, MakesASharedInstanceOnFirstUseFromItsPlatform) {
  EXPECT_TRUE(events.empty());
  Library& library = installation_->shared<Library>();
  EXPECT_EQ(&library.platform(), &platform_);
  EXPECT_EQ(&installation_->shared<Library>(), &library);
  EXPECT_EQ(events, std::vector<std::string>{"library made"});
}

TEST_F(InstallationTest, EndsSharedInstancesLastMadeFirst) {
  installation_->shared<Reader>();
  events.clear();
  installation_.reset();
  EXPECT_EQ(events, (std::vector<std::string>{"reader ended", "library ended"}));
}

TEST_F(InstallationTest, LeavesNothingToTheNextOne) {
  installation_->shared<Library>();
  installation_.reset();
  installation_.emplace(platform_);
  events.clear();
  installation_->shared<Library>();
  EXPECT_EQ(events, std::vector<std::string>{"library made"});
}

using InstallationDeathTest = InstallationTest;

TEST_F(InstallationDeathTest, StopsTheProgramWhereThereIsNone) {
  installation_.reset();
  EXPECT_DEATH(Installation::current(), "no platform is installed");
}

TEST_F(InstallationDeathTest, StopsTheProgramWhereThereWouldBeTwo) {
  EXPECT_DEATH(Installation second(platform_), "a platform is installed already");
}

}  // namespace
}  // namespace roomlattice::platform
