#pragma once

#include <vector>

namespace roomlattice::gnustep {

/// An alpha value that was given to a window's animator.
struct AnimationRecord {
  double duration = 0.0;  // seconds
  bool allowsImplicitAnimation = true;
  double alpha = 0.0;

  bool operator==(const AnimationRecord&) const = default;
};

/// All since the last call.
std::vector<AnimationRecord> takeAnimations();

}  // namespace roomlattice::gnustep
