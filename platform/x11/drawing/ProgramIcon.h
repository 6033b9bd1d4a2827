#pragma once

#include <QIcon>

namespace roomlattice::platform::x11 {

/// The icon of the program in the sizes that taskbars and title bars show.
QIcon programIcon();

}  // namespace roomlattice::platform::x11
