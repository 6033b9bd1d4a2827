#pragma once

#include <chrono>
#include <functional>

namespace roomlattice::tests {

/// Serves the main thread's run loop and the application's events until `condition` holds; false if it does not within
/// a generous limit.
bool runUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(30));

/// Serves them for a while, for what must not happen.
void runFor(std::chrono::milliseconds duration);

}  // namespace roomlattice::tests
