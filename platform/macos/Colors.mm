#import "platform/macos/Colors.h"

namespace roomlattice::platform::macos {

NSColor* toNSColor(const Color& color) {
  return [NSColor colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha];
}

NSColor* toNSColor(const TextColor& color) {
  if (const Color* own = std::get_if<Color>(&color)) {
    return toNSColor(*own);
  }
  switch (std::get<SystemColor>(color)) {
    case SystemColor::Label:
      return [NSColor labelColor];
    case SystemColor::SecondaryLabel:
      return [NSColor secondaryLabelColor];
  }
}

Color toColor(NSColor* color) {
  NSColor* converted = [color colorUsingColorSpace:[NSColorSpace sRGBColorSpace]];
  if (converted == nil) {
    // To ask a pattern for its components would raise an exception.
    return {.space = ColorSpace::Unconvertible};
  }
  CGFloat red = 0.0;
  CGFloat green = 0.0;
  CGFloat blue = 0.0;
  CGFloat alpha = 0.0;
  [converted getRed:&red green:&green blue:&blue alpha:&alpha];
  return {red, green, blue, alpha};
}

}  // namespace roomlattice::platform::macos
