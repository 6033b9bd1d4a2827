#pragma once

#include "platform/Geometry.h"

#include <vector>

namespace roomlattice {

/// Children placed one after the other. Frames keep the order of the children and are relative to the stack's bottom
/// left corner; the stack is as large as its children need.
struct Stack {
  platform::Size size;
  std::vector<platform::Rect> frames;
};

/// From left to right, centred vertically on each other.
Stack horizontalStack(const std::vector<platform::Size>& children, double spacing);

/// From top to bottom, aligned at their left edges.
Stack verticalStack(const std::vector<platform::Size>& children, double spacing);

}  // namespace roomlattice
