#pragma once

#include "platform/ControlEndpoint.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice {

/// Which of `desktops` somebody means by `text`: its index, or why there is none or more than one. The first of these
/// that any desktop answers to decides: its number; its uuid; its name; its name but for the case of the letters A–Z;
/// a beginning of its name; the same but for the case. Full-screen spaces are meant only by their uuid or whole name,
/// and by that where no regular desktop has it.
std::variant<std::size_t, platform::CommandError> findDesktop(const std::string& text,
                                                              const std::vector<platform::DesktopState>& desktops);

}  // namespace roomlattice
