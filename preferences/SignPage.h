#pragma once

#include "platform/UserInterface.h"
#include "preferences/PreferencesStore.h"

namespace roomlattice {

/// The page of the labels, which shows what is set now and from then on only writes to `store`.
platform::TabPage makeSignPage(const platform::UserInterface& userInterface, PreferencesStore& store);

}  // namespace roomlattice
