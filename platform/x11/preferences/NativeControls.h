#pragma once

#include "platform/Controls.h"

#include <memory>

class QWidget;

namespace roomlattice::platform::x11 {

/// The native widget of a control, showing what the control does at first and calling its action whenever the user
/// changes it. It has no parent and no geometry yet.
std::unique_ptr<QWidget> makeControl(const Control& control);

/// The size such a widget has of itself, in points. Nothing is shown.
Size intrinsicSize(const Control& control);

}  // namespace roomlattice::platform::x11
