#import "platform/macos/ObjectPointer.h"

#include <gtest/gtest.h>

#include <utility>

namespace roomlattice::platform::macos {
namespace {

TEST(ObjectPointerTest, TakesOverTheReferenceItAdopts) {
  NSObject* object = [[NSObject alloc] init];
  [object retain];
  { const ObjectPointer<NSObject> pointer = adopt(object); }
  EXPECT_EQ([object retainCount], 1U);
  [object release];
}

TEST(ObjectPointerTest, LeavesTheCallersReferenceWhenItShares) {
  NSObject* object = [[NSObject alloc] init];
  { const ObjectPointer<NSObject> pointer = share(object); }
  EXPECT_EQ([object retainCount], 1U);
  [object release];
}

TEST(ObjectPointerTest, KeepsTheObjectWhileACopyLives) {
  ObjectPointer<NSObject> first = adopt([[NSObject alloc] init]);
  const ObjectPointer<NSObject> second = first;
  first = {};
  EXPECT_EQ([second.get() retainCount], 1U);
}

TEST(ObjectPointerTest, IsEmptyAfterAMove) {
  ObjectPointer<NSObject> first = adopt([[NSObject alloc] init]);
  const ObjectPointer<NSObject> second = std::move(first);
  EXPECT_FALSE(first);
  EXPECT_EQ([second.get() retainCount], 1U);
}

TEST(ObjectPointerTest, SurvivesAssignmentToItself) {
  ObjectPointer<NSObject> pointer = adopt([[NSObject alloc] init]);
  const ObjectPointer<NSObject>& same = pointer;
  pointer = same;
  EXPECT_EQ([pointer.get() retainCount], 1U);
}

}  // namespace
}  // namespace roomlattice::platform::macos
