#include "support/Lifetime.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace roomlattice::platform {
namespace {

TEST(LifetimeTest, LetsGuardedFunctionsRunWhileItLasts) {
  const Lifetime lifetime;
  std::string received;
  const std::function<void(const std::string&)> guarded =
      lifetime.guard([&](const std::string& text) { received = text; });
  guarded("hello");
  EXPECT_EQ(received, "hello");
}

TEST(LifetimeTest, MakesGuardedFunctionsDoNothingOnceItHasEnded) {
  std::optional<Lifetime> lifetime(std::in_place);
  int calls = 0;
  const std::function<void()> guarded = lifetime->guard([&] { ++calls; });
  const std::function<void()> copy = guarded;
  lifetime.reset();
  guarded();
  copy();
  EXPECT_EQ(calls, 0);
}

TEST(LifetimeTest, LetsAGuardedFunctionThatRunsFinishWhenItEnds) {
  std::optional<Lifetime> lifetime(std::in_place);
  int steps = 0;
  const std::function<void()> guarded = lifetime->guard([&] {
    ++steps;
    lifetime.reset();
    ++steps;
  });
  guarded();
  guarded();
  EXPECT_EQ(steps, 2);
}

}  // namespace
}  // namespace roomlattice::platform
