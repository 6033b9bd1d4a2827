#pragma once

#include <cstdint>
#include <vector>

namespace roomlattice::gnustep {

struct MonitorRecord {
  bool isGlobal = false;
  std::uint64_t mask = 0;

  bool operator==(const MonitorRecord&) const = default;
};

/// The monitors that have not been removed.
std::vector<MonitorRecord> eventMonitors();

/// The next monitors asked for are refused, or given again.
void refuseMonitors(bool refuse);

/// Has the pointer move over another application's window, to where it is.
void movePointerOutside();

}  // namespace roomlattice::gnustep
