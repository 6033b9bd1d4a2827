#import "platform/macos/Layers.h"

#import <QuartzCore/QuartzCore.h>

#import "platform/macos/Colors.h"

namespace roomlattice::platform::macos {

void setLayerBackground(NSView* view, const std::optional<Color>& background, double cornerRadius) {
  [view setWantsLayer:YES];
  [[view layer] setBackgroundColor:background ? [toNSColor(*background) CGColor] : nullptr];
  [[view layer] setCornerRadius:cornerRadius];
}

}  // namespace roomlattice::platform::macos
