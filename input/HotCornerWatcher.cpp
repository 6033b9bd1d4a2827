#include "input/HotCornerWatcher.h"

#include <optional>

namespace roomlattice {
namespace {

// The side of the square, in points.
constexpr double triggerZoneSize = 5.0;

}  // namespace

void HotCornerWatcher::start() {
  monitor_ = platform_.events().monitorGlobalMouseMoved([this] { handleMouseMoved(); });
}

void HotCornerWatcher::handleMouseMoved() {
  const std::optional<platform::Screen> screen = platform_.userInterface().mainScreen();
  if (!screen) {
    return;
  }
  const platform::Rect& frame = screen->frame;
  const platform::Point pointer = platform_.events().mouseLocation();
  // All four bounds belong to the zone, unlike those of a rectangle: a pointer pushed into the corner rests on them.
  const bool inZone = frame.minX() <= pointer.x && pointer.x <= frame.minX() + triggerZoneSize &&
                      frame.maxY() - triggerZoneSize <= pointer.y && pointer.y <= frame.maxY();
  if (!inZone) {
    armed_ = true;
  } else if (armed_) {
    armed_ = false;
    platform_.dispatcher().async(lifetime_.guard([this] { onApproach(); }));
  }
}

}  // namespace roomlattice
