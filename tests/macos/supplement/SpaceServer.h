#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace roomlattice::gnustep {

struct Space {
  std::uint64_t identifier = 0;
  std::string uuid;
  std::int64_t type = 0;
};

/// A window server with one display and its desktops, behind the private functions. One for the process; reset at the
/// start of a test.
class SpaceServer {
 public:
  static SpaceServer& shared();

  void reset();

  std::vector<Space> spaces;
  std::uint64_t active = 0;
  std::map<std::int64_t, std::set<std::uint64_t>> windows;
  /// In place of the dictionaries of `spaces`, when not empty: a property list in GNUstep's text format.
  std::string givenAnswer;

  /// Moves to the next or previous desktop and has the workspace report it; stays at the ends of the list.
  void step(int by);

  /// Follows the synthetic Dock swipes that are posted, as the Dock does: at the end of each it goes one step.
  void followSwipes();

  /// Arrays handed out that are alive.
  static int liveAnswers();
};

}  // namespace roomlattice::gnustep
