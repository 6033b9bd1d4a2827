#pragma once

#include "tests/conformance/Backend.h"
#include "tests/conformance/KnownGaps.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace roomlattice::tests {

/// A test of what the headers of platform/ promise, for any backend.
class ConformanceTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    if (const auto gap = knownGap(backendName(), std::string(test->test_suite_name()) + "." + test->name())) {
      GTEST_SKIP() << *gap;
    }
    backend_ = makeBackend();
  }

  Backend& backend() { return *backend_; }
  platform::Platform& platform() { return backend_->platform(); }
  bool runUntil(const std::function<bool()>& condition) { return backend_->runUntil(condition); }
  void runFor(std::chrono::milliseconds duration) { backend_->runFor(duration); }

 private:
  std::unique_ptr<Backend> backend_;
};

}  // namespace roomlattice::tests
