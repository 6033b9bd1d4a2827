#pragma once

namespace roomlattice::platform {

enum class FontFamily { System, MonospacedSystem };

enum class FontWeight { Regular, Medium, Semibold, Heavy };

struct Font {
  FontFamily family = FontFamily::System;
  double size = 13.0;  // points
  FontWeight weight = FontWeight::Regular;

  bool operator==(const Font&) const = default;
};

}  // namespace roomlattice::platform
