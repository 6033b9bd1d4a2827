#pragma once

#include <chrono>
#include <functional>

namespace roomlattice::tests {

/// Lets the Qt event loop run, where there is a Qt application, until `condition` holds; false when it did not within
/// `limit`, which is only there so that a failing test ends.
bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(30));

}  // namespace roomlattice::tests
