#pragma once

#include <optional>

namespace roomlattice::gnustep {

/// The activation policy last set.
std::optional<long> activationPolicy();

/// What the application appears like. Light at first.
enum class Look { Light, Dark, Neither };
void setLook(Look look);

}  // namespace roomlattice::gnustep
