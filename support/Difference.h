#pragma once

#include <algorithm>
#include <cstddef>

namespace roomlattice {

/// What makes one list another one, where most is as it was: what lies between what both begin with and what both end
/// with.
struct Difference {
  /// Where it begins, in both.
  std::size_t first = 0;
  /// How many elements it has in the list before, and in the one after.
  std::size_t before = 0;
  std::size_t after = 0;

  bool empty() const { return before == 0 && after == 0; }
};

/// `isSame` is called with the place of an element in the list before and with one in the list after.
template <class IsSame>
Difference differenceOf(std::size_t before, std::size_t after, IsSame isSame) {
  Difference difference{.before = before, .after = after};
  const std::size_t shorter = std::min(before, after);
  while (difference.first < shorter && isSame(difference.first, difference.first)) {
    ++difference.first;
  }
  difference.before -= difference.first;
  difference.after -= difference.first;
  while (difference.before > 0 && difference.after > 0 &&
         isSame(difference.first + difference.before - 1, difference.first + difference.after - 1)) {
    --difference.before;
    --difference.after;
  }
  return difference;
}

}  // namespace roomlattice
