#include "platform/linux/storage/SettingsChange.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Value;
using platform::linux::SettingsChange;
using Dictionary = Value::Dictionary;

TEST(SettingsChangeTest, ReplacesASettingThatIsNoDictionary) {
  EXPECT_EQ(SettingsChange(Value(1), 2).appliedTo(3), Value(2));
  EXPECT_EQ(SettingsChange(Value(1), Value()).appliedTo(3), Value());
  EXPECT_EQ(SettingsChange(std::nullopt, Dictionary{{"a", 1}}).appliedTo(Dictionary{{"b", 2}}),
            Value(Dictionary{{"a", 1}}));
}

TEST(SettingsChangeTest, SetsAndRemovesOnlyTheEntriesThatChanged) {
  const SettingsChange change(Value(Dictionary{{"same", 1}, {"other", 1}, {"gone", 1}}),
                              Dictionary{{"same", 1}, {"other", 2}, {"new", 3}});
  EXPECT_EQ(change.appliedTo(Dictionary{{"same", 9}, {"other", 9}, {"gone", 9}, {"theirs", 9}}),
            Value(Dictionary{{"same", 9}, {"other", 2}, {"new", 3}, {"theirs", 9}}));
}

TEST(SettingsChangeTest, AddsToADictionaryThatWasNotThereBefore) {
  EXPECT_EQ(SettingsChange(Value(), Dictionary{{"mine", 1}}).appliedTo(Dictionary{{"theirs", 2}}),
            Value(Dictionary{{"mine", 1}, {"theirs", 2}}));
}

TEST(SettingsChangeTest, WritesAllWhereTheDictionaryHasGone) {
  const SettingsChange change(Value(Dictionary{{"a", 1}}), Dictionary{{"a", 1}, {"b", 2}});
  EXPECT_EQ(change.appliedTo(Value()), Value(Dictionary{{"a", 1}, {"b", 2}}));
}

TEST(SettingsChangeTest, AddsUp) {
  SettingsChange change(Value(Dictionary{{"a", 1}}), Dictionary{{"a", 1}, {"b", 2}});
  change.follow(SettingsChange(Value(Dictionary{{"a", 1}, {"b", 2}}), Dictionary{{"b", 3}}));
  EXPECT_EQ(change.appliedTo(Dictionary{{"a", 1}, {"c", 4}}), Value(Dictionary{{"b", 3}, {"c", 4}}));
  change.follow(SettingsChange(Value(Dictionary{{"b", 3}}), 5));
  EXPECT_EQ(change.appliedTo(Dictionary{{"c", 4}}), Value(5));
}

}  // namespace
}  // namespace roomlattice::tests
