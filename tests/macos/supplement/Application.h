#pragma once

#import <Foundation/Foundation.h>

#include <optional>

namespace roomlattice::gnustep {

/// The activation policy last set.
std::optional<long> activationPolicy();

/// What the application appears like. Light at first.
enum class Look { Light, Dark, Neither };
void setLook(Look look);

/// The names it was last to choose the best match from, in order.
NSArray* appearanceNamesAsked();

}  // namespace roomlattice::gnustep
