#pragma once

#include "platform/View.h"

#include <cstddef>
#include <optional>
#include <variant>

namespace roomlattice::tests {

/// An element of a view of a kind that the test expects, with its place.
template <class Kind>
struct ShownElement : Kind {
  platform::Rect frame;
  bool hidden = false;
};

/// The element at `index`; it has to be of that kind.
template <class Kind>
ShownElement<Kind> elementAt(const platform::ViewContent& content, std::size_t index) {
  const platform::ViewElement& element = content.elements.at(index);
  return {std::get<Kind>(element.kind), element.frame, element.hidden};
}

/// The first element of that kind.
template <class Kind>
std::optional<ShownElement<Kind>> findElement(const platform::ViewContent& content) {
  for (std::size_t index = 0; index < content.elements.size(); ++index) {
    if (std::holds_alternative<Kind>(content.elements[index].kind)) {
      return elementAt<Kind>(content, index);
    }
  }
  return std::nullopt;
}

}  // namespace roomlattice::tests
