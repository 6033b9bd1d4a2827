#include "support/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace roomlattice {

void fatal(std::string_view message) {
  std::fprintf(stderr, "roomlattice: fatal: %.*s\n", static_cast<int>(message.size()), message.data());
  std::abort();
}

}  // namespace roomlattice
