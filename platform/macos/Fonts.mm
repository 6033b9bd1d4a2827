#import "platform/macos/Fonts.h"

#import "platform/macos/Geometry.h"
#import "platform/macos/Strings.h"

namespace roomlattice::platform::macos {
namespace {

NSFontWeight toNSFontWeight(FontWeight weight) {
  switch (weight) {
    case FontWeight::Regular:
      return NSFontWeightRegular;
    case FontWeight::Medium:
      return NSFontWeightMedium;
    case FontWeight::Semibold:
      return NSFontWeightSemibold;
    case FontWeight::Heavy:
      return NSFontWeightHeavy;
  }
}

}  // namespace

NSFont* toNSFont(const Font& font) {
  const NSFontWeight weight = toNSFontWeight(font.weight);
  return font.family == FontFamily::MonospacedSystem ? [NSFont monospacedSystemFontOfSize:font.size weight:weight]
                                                     : [NSFont systemFontOfSize:font.size weight:weight];
}

Size textSize(const std::string& text, const Font& font) {
  NSDictionary* attributes = [NSDictionary dictionaryWithObject:toNSFont(font) forKey:NSFontAttributeName];
  // An empty string has no height; its line has.
  NSString* measured = text.empty() ? @" " : toNSString(toSingleLine(text));
  const Size size = toSize([measured sizeWithAttributes:attributes]);
  return text.empty() ? Size{0.0, size.height} : size;
}

}  // namespace roomlattice::platform::macos
