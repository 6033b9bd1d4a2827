#pragma once

#include "platform/UserInterface.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

namespace roomlattice {

/// The page of the colours, with a well for each of the first sixteen regular desktops. It shows what is set now and
/// from then on only writes to `store`; a desktop that has gone since is passed over.
platform::TabPage makeColorsPage(const platform::UserInterface& userInterface, PreferencesStore& store,
                                 const SpaceManager& manager);

}  // namespace roomlattice
