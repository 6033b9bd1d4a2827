#pragma once

#include "platform/Controls.h"
#include "platform/Font.h"
#include "platform/Geometry.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace roomlattice::platform::simulated {

/// The simulated desktop's one font: every character is equally wide. Its factors are binary fractions, so that sizes
/// add up exactly:
///
///   regular 0.5, medium 0.53125, semibold 0.5625, heavy 0.625, monospaced 0.625 of the point size per code point;
///   a line is 1.25 of the point size high.
Size measureText(std::string_view text, const Font& font);

/// Sizes of controls, with S the size of their text in the system font:
///
///   label               S; with a wrap width, lines broken at spaces, as wide as the widest
///   slider              96 × 20
///   check box           S + (20, 2)
///   pop-up              widest item's S + (40, 8)
///   colour well         44 × 24
///   push button         S + (32, 8)
///   selectable text     S + (8, 6)
Size intrinsicSizeOf(const Control& control);

/// Of the standard control text, in points.
inline constexpr double systemFontPoints = 13.0;

/// Of titles in the status bar, in points.
inline constexpr double statusFontPoints = 14.0;

/// The index of the first byte of the last code point; 0 for an empty text.
std::size_t startOfLastCharacter(std::string_view text);

}  // namespace roomlattice::platform::simulated
