#pragma once

#include <optional>
#include <string>

namespace roomlattice::platform::x11 {

/// Which variable of the environment would have the toolkit draw in a size that nobody can use, in words; nothing where
/// none does. The variables are in Qt's documentation on high resolutions (doc.qt.io/qt-6/highdpi.html).
std::optional<std::string> unusableToolkitSetting();

}  // namespace roomlattice::platform::x11
