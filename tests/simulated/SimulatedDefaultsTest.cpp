#include "platform/simulated/SimulatedDefaults.h"

#include "tests/support/SimulatedFixture.h"

namespace roomlattice::tests {
namespace {

using platform::Value;

class SimulatedDefaultsTest : public SimulatedFixture {
 protected:
  platform::Defaults& defaults() { return platform().defaults(); }
};

TEST_F(SimulatedDefaultsTest, TellAnAbsentKeyFromAnyValue) {
  EXPECT_EQ(defaults().object("Shown"), std::nullopt);
  defaults().set("Shown", false);
  EXPECT_EQ(defaults().object("Shown"), Value(false));
}

TEST_F(SimulatedDefaultsTest, KeepTheTypesOfValues) {
  defaults().set("Integer", 1);
  defaults().set("Double", 1.0);
  defaults().set("Data", Value::Data{std::byte{1}});
  EXPECT_EQ(defaults().object("Integer"), Value(1));
  EXPECT_EQ(defaults().object("Double"), Value(1.0));
  EXPECT_EQ(defaults().object("Data"), Value(Value::Data{std::byte{1}}));
}

TEST_F(SimulatedDefaultsTest, RemoveAKeyWithANull) {
  defaults().set("Size", 1);
  defaults().set("Size", {});
  EXPECT_EQ(defaults().object("Size"), std::nullopt);
  EXPECT_FALSE(desktop.storedDefaults().contains("Size"));
}

TEST_F(SimulatedDefaultsTest, SurviveARelaunch) {
  defaults().set("Size", 160.0);
  relaunch();
  EXPECT_EQ(defaults().object("Size"), Value(160.0));
}

TEST_F(SimulatedDefaultsTest, SeeWhatOthersStore) {
  defaults().set("Size", 160.0);
  desktop.storedDefaults()["Size"] = "large";
  EXPECT_EQ(defaults().object("Size"), Value("large"));
}

TEST_F(SimulatedDefaultsTest, ReadBackWhatCouldNotBeStoredAndSaySoInTheLog) {
  defaults().set("Size", 1);
  desktop.faults.defaultsUnwritable = true;
  defaults().set("Size", 2);
  defaults().set("Name", "Work");
  EXPECT_EQ(defaults().object("Size"), Value(2));
  EXPECT_EQ(defaults().object("Name"), Value("Work"));
  EXPECT_EQ(desktop.log().lines().size(), 2U);
  relaunch();
  EXPECT_EQ(defaults().object("Size"), Value(1));
  EXPECT_EQ(defaults().object("Name"), std::nullopt);
}

TEST_F(SimulatedDefaultsTest, StoreWhatIsOutstandingWithTheNextWriteThatCanBe) {
  defaults().set("Old", 1);
  desktop.faults.defaultsUnwritable = true;
  defaults().set("Size", 2);
  defaults().set("Old", {});
  EXPECT_EQ(defaults().object("Old"), std::nullopt);
  desktop.faults.defaultsUnwritable = false;
  defaults().set("Name", "Work");
  relaunch();
  EXPECT_EQ(defaults().object("Size"), Value(2));
  EXPECT_EQ(defaults().object("Name"), Value("Work"));
  EXPECT_EQ(defaults().object("Old"), std::nullopt);
}

}  // namespace
}  // namespace roomlattice::tests
