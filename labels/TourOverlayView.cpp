#include "labels/TourOverlayView.h"

#include "support/Stack.h"

#include <algorithm>

namespace roomlattice {
namespace {

constexpr const char* message = "initializing the plink";
constexpr platform::Font messageFont{.size = 22.0, .weight = platform::FontWeight::Semibold};
constexpr double overlayAlpha = 0.72;
constexpr platform::Size spinnerSize{24.0, 24.0};
constexpr double spacing = 16.0;
constexpr double overlayMargin = 28.0;

}  // namespace

TourOverlayView::TourOverlayView(const platform::UserInterface& userInterface, const platform::Rect& frame)
    : userInterface_(userInterface) {
  setFrame(frame);
}

platform::ViewContent TourOverlayView::content() const {
  const platform::Size plate = frame().size;
  platform::Size text = userInterface_.measure(message, messageFont);
  text.width = std::min(text.width, std::max(plate.width - 2 * overlayMargin - spinnerSize.width - spacing, 0.0));
  Stack stack = horizontalStack({spinnerSize, text}, spacing);
  for (platform::Rect& child : stack.frames) {
    child.origin.x += (plate.width - stack.size.width) * 0.5;
    child.origin.y += (plate.height - stack.size.height) * 0.5;
  }
  return {.background = platform::Color::black().withAlpha(overlayAlpha),
          .cornerRadius = plate.height * 0.5,
          .elements = {{.frame = stack.frames[0], .kind = platform::SpinnerElement()},
                       {.frame = stack.frames[1],
                        .kind = platform::TextElement{
                            .text = message, .font = messageFont, .color = platform::Color::white()}}}};
}

}  // namespace roomlattice
