#include "tests/conformance/ConformanceTest.h"

namespace roomlattice::tests {
namespace {

using ApplicationConformance = ConformanceTest;

TEST_F(ApplicationConformance, TellsOnceThatItHasLaunched) {
  int launches = 0;
  platform::Application& application = platform().application();
  application.setActivationPolicy(platform::ActivationPolicy::Accessory);
  const platform::Registration end = platform().dispatcher().schedule(std::chrono::milliseconds(50), [&] {
    EXPECT_EQ(launches, 1);
    application.terminate();
  });
  EXPECT_EQ(application.run([&] { ++launches; }), 0);
  EXPECT_EQ(launches, 1);
}

}  // namespace
}  // namespace roomlattice::tests
