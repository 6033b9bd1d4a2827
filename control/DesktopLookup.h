#pragma once

#include "platform/ControlEndpoint.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice {

/// Which of `desktops` somebody means by `text`: its index, or why there is none or more than one. Only regular ones
/// are found. The first of these that any of them answers to decides: its number; its uuid; its name; its name but for
/// the case of the letters A–Z; a beginning of its name; the same but for the case. Where none answers, but the text is
/// the uuid or the whole name of a full-screen space, that is the reason given.
std::variant<std::size_t, platform::CommandError> findDesktop(const std::string& text,
                                                              const std::vector<platform::DesktopState>& desktops);

}  // namespace roomlattice
