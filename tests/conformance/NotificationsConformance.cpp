#include "tests/conformance/ConformanceTest.h"

#include <string>

namespace roomlattice::tests {
namespace {

using platform::NotificationCenter;
using platform::Registration;

constexpr const char* name = "ConformanceDidChange";

class NotificationsConformance : public ConformanceTest {
 protected:
  NotificationCenter& center() { return platform().notifications().defaultCenter(); }
};

TEST_F(NotificationsConformance, RunsObserversInOrderBeforePostReturns) {
  std::string order;
  const Registration first = center().observe(name, [&] { order += "a"; });
  const Registration second = center().observe(name, [&] { order += "b"; });
  const Registration third = center().observe(name, [&] { order += "c"; });
  center().post(name);
  EXPECT_EQ(order, "abc");
}

TEST_F(NotificationsConformance, TellsNamesApart) {
  int calls = 0;
  const Registration observer = center().observe(name, [&] { ++calls; });
  center().post("ConformanceDidEnd");
  EXPECT_EQ(calls, 0);
}

TEST_F(NotificationsConformance, TellsCentresApart) {
  int calls = 0;
  const Registration observer = center().observe(name, [&] { ++calls; });
  platform().notifications().workspaceCenter().post(name);
  platform().notifications().distributedCenter().post(name);
  EXPECT_EQ(calls, 0);
}

TEST_F(NotificationsConformance, StopsWithTheRegistration) {
  int calls = 0;
  Registration observer = center().observe(name, [&] { ++calls; });
  observer.cancel();
  center().post(name);
  EXPECT_EQ(calls, 0);
}

TEST_F(NotificationsConformance, LeavesObserversAddedMeanwhileOut) {
  int calls = 0;
  Registration late;
  const Registration observer = center().observe(name, [&] { late = center().observe(name, [&] { ++calls; }); });
  center().post(name);
  EXPECT_EQ(calls, 0);
}

TEST_F(NotificationsConformance, LeavesObserversEndedMeanwhileOut) {
  int calls = 0;
  Registration second;
  const Registration first = center().observe(name, [&] { second.cancel(); });
  second = center().observe(name, [&] { ++calls; });
  center().post(name);
  EXPECT_EQ(calls, 0);
}

TEST_F(NotificationsConformance, AllowsAPostWithinAPost) {
  std::string order;
  const Registration outer = center().observe(name, [&] {
    order += "(";
    center().post("ConformanceDidEnd");
    order += ")";
  });
  const Registration inner = center().observe("ConformanceDidEnd", [&] { order += "x"; });
  center().post(name);
  EXPECT_EQ(order, "(x)");
}

}  // namespace
}  // namespace roomlattice::tests
