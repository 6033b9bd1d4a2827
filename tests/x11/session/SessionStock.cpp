#include "tests/x11/session/SessionStock.h"

#include <algorithm>
#include <vector>

namespace roomlattice::tests {
namespace {

/// Enough for a suite that runs under every window manager; servers that nobody uses take memory.
constexpr std::size_t capacity = 4;

std::vector<std::unique_ptr<SessionBase>>& stock() {
  static std::vector<std::unique_ptr<SessionBase>> bases;
  return bases;
}

}  // namespace

std::unique_ptr<SessionBase> takeSessionBase(const SessionOptions& options) {
  const auto found = std::ranges::find_if(stock(), [&](const auto& base) { return base->options() == options; });
  if (found == stock().end()) {
    return std::make_unique<SessionBase>(options);
  }
  std::unique_ptr<SessionBase> base = std::move(*found);
  stock().erase(found);
  return base;
}

void leaveSessionBase(std::unique_ptr<SessionBase> base) {
  if (!base->renew()) {
    return;
  }
  if (stock().size() == capacity) {
    stock().erase(stock().begin());
  }
  stock().push_back(std::move(base));
}

}  // namespace roomlattice::tests
