#include "tests/conformance/ConformanceTest.h"

#include <algorithm>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DesktopNames;
using platform::Value;

class DesktopNamesConformance : public ConformanceTest {
 protected:
  DesktopNames& names() { return platform().desktopNames(); }

  /// Of the desktops of the first display.
  std::vector<std::string> uuids() {
    std::vector<std::string> uuids;
    const Value displays = platform().windowServer().managedDisplaySpaces();
    const Value* const spaces = platform::find(*displays.asArray()->front().asDictionary(), "Spaces");
    const auto dictionaries = spaces->toDictionaries().value();
    for (const Value::Dictionary* space : dictionaries) {
      uuids.push_back(*platform::find(*space, "uuid")->asString());
    }
    return uuids;
  }

  bool isCalled(const std::string& uuid, const std::string& name) {
    return runUntil([&] { return names().read().value_or(DesktopNames::Names())[uuid] == name; });
  }
};

TEST_F(DesktopNamesConformance, GivesADesktopANameAndTells) {
  const std::string uuid = uuids().at(1);
  int changes = 0;
  platform::Registration observer = names().observe([&] { ++changes; });
  names().set(uuid, "Größe");
  EXPECT_EQ(changes, 0);
  EXPECT_TRUE(isCalled(uuid, "Größe"));
  EXPECT_GE(changes, 1);
  observer.cancel();
  changes = 0;
  names().set(uuid, "Mail");
  EXPECT_TRUE(isCalled(uuid, "Mail"));
  EXPECT_EQ(changes, 0);
}

TEST_F(DesktopNamesConformance, IgnoresADesktopThatItDoesNotKnow) {
  const auto before = names().read();
  names().set("no such desktop", "Mail");
  const std::string uuid = uuids().at(0);
  if (before) {
    names().set(uuid, "Web");
    EXPECT_TRUE(isCalled(uuid, "Web"));
    EXPECT_FALSE(std::ranges::any_of(*names().read(), [](const auto& entry) { return entry.second == "Mail"; }));
  }
}

}  // namespace
}  // namespace roomlattice::tests
