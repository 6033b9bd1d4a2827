#include "support/Stack.h"

#include <algorithm>

namespace roomlattice {
namespace {

double totalSpacing(const std::vector<platform::Size>& children, double spacing) {
  return children.empty() ? 0.0 : spacing * static_cast<double>(children.size() - 1);
}

}  // namespace

Stack horizontalStack(const std::vector<platform::Size>& children, double spacing) {
  Stack stack{.size = {totalSpacing(children, spacing), 0.0}, .frames = {}};
  for (const platform::Size& child : children) {
    stack.size.width += child.width;
    stack.size.height = std::max(stack.size.height, child.height);
  }
  double x = 0.0;
  for (const platform::Size& child : children) {
    stack.frames.push_back({{x, (stack.size.height - child.height) * 0.5}, child});
    x += child.width + spacing;
  }
  return stack;
}

Stack verticalStack(const std::vector<platform::Size>& children, double spacing) {
  Stack stack{.size = {0.0, totalSpacing(children, spacing)}, .frames = {}};
  for (const platform::Size& child : children) {
    stack.size.width = std::max(stack.size.width, child.width);
    stack.size.height += child.height;
  }
  double top = stack.size.height;
  for (const platform::Size& child : children) {
    stack.frames.push_back({{0.0, top - child.height}, child});
    top -= child.height + spacing;
  }
  return stack;
}

}  // namespace roomlattice
