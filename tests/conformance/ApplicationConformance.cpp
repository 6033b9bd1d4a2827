#include "tests/conformance/ConformanceTest.h"

namespace roomlattice::tests {
namespace {

using ApplicationConformance = ConformanceTest;

TEST_F(ApplicationConformance, TellsOnceThatItHasLaunched) {
  int launches = 0;
  platform::Application& application = platform().application();
  application.setActivationPolicy(platform::ActivationPolicy::Accessory);
  platform::Registration end;
  const auto launched = [&] {
    ++launches;
    end = platform().dispatcher().schedule(std::chrono::milliseconds(50), [&] { application.terminate(); });
  };
  EXPECT_EQ(application.run(launched), 0);
  EXPECT_EQ(launches, 1);
}

}  // namespace
}  // namespace roomlattice::tests
