#include "tests/support/ProgramFixture.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Value;

/// The rows of an open menu while the desktops they stand for become others.
class DesktopMenuRecordsTest : public ProgramFixture {
 protected:
  const std::string& uuid(std::size_t index) { return uuids_.at(index); }

  void openMenu() {
    for (const platform::simulated::Space& space : desktop.spaces().regular()) {
      uuids_.push_back(space.uuid);
    }
    startProgram();
    user.clicksStatusItem();
  }

  /// From now on the second desktop has the uuid of the third, and the third that of the second.
  void exchangesTheUuidsOfSecondAndThird() {
    std::vector<std::string> exchanged = uuids_;
    std::swap(exchanged.at(1), exchanged.at(2));
    Value::Array spaces;
    for (std::size_t index = 0; index < exchanged.size(); ++index) {
      spaces.emplace_back(Value::Dictionary{{"ManagedSpaceID", static_cast<std::int64_t>(desktop.desktopAt(index))},
                                            {"uuid", exchanged[index]}});
    }
    desktop.overrideManagedDisplaySpaces(
        Value::Array{Value::Dictionary{{"Display Identifier", "Display 1"}, {"Spaces", spaces}}});
    desktop.reportActiveSpaceChange();
  }

 private:
  std::vector<std::string> uuids_;
};

TEST_F(DesktopMenuRecordsTest, RenamesTheUuidTheRowWasMadeFor) {
  openMenu();
  exchangesTheUuidsOfSecondAndThird();
  user.clicksRowButton(1);
  user.types("Mail");
  user.pressesKey(platform::keyCode::returnKey);
  EXPECT_EQ(desktop.storedDefaults()["SpaceNames"], Value(Value::Dictionary{{uuid(1), "Mail"}}));
}

TEST_F(DesktopMenuRecordsTest, SwitchesToTheIdentifierTheRowWasMadeFor) {
  openMenu();
  exchangesTheUuidsOfSecondAndThird();
  user.clicksRow(1);
  desktop.advance(1400ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

}  // namespace
}  // namespace roomlattice::tests
