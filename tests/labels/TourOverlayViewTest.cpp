#include "labels/TourOverlayView.h"

#include "tests/support/ShownElement.h"
#include "tests/support/SimulatedFixture.h"

#include <variant>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::Rect;
using platform::SpinnerElement;
using platform::TextElement;
using platform::ViewContent;

class TourOverlayViewTest : public SimulatedFixture {
 protected:
  ViewContent contentOfSize(platform::Size size) {
    return TourOverlayView(platform().userInterface(), Rect{{}, size}).content();
  }
};

TEST_F(TourOverlayViewTest, IsADarkCapsule) {
  EXPECT_EQ(contentOfSize({460.0, 96.0}).background, (Color{0.0, 0.0, 0.0, 0.72}));
  EXPECT_EQ(contentOfSize({460.0, 96.0}).cornerRadius, 48.0);
  EXPECT_EQ(contentOfSize({460.0, 60.0}).cornerRadius, 30.0);
}

TEST_F(TourOverlayViewTest, TakesTheFrameItIsMadeWith) {
  EXPECT_EQ(TourOverlayView(platform().userInterface(), Rect{{}, {460.0, 96.0}}).frame(), (Rect{{}, {460.0, 96.0}}));
}

TEST_F(TourOverlayViewTest, ShowsASpinnerAndALineOfWhiteText) {
  const ViewContent content = contentOfSize({460.0, 96.0});
  ASSERT_EQ(content.elements.size(), 2U);
  EXPECT_TRUE(std::holds_alternative<SpinnerElement>(content.elements[0].kind));
  const auto text = elementAt<TextElement>(content, 1);
  EXPECT_EQ(text.text, "initializing the plink");
  EXPECT_EQ(text.font, (platform::Font{platform::FontFamily::System, 22.0, platform::FontWeight::Semibold}));
  EXPECT_EQ(std::get<Color>(text.color), (Color{1.0, 1.0, 1.0, 1.0}));
}

// The text is 272.25 × 27.5 points, and with the spinner and the space between them 312.25.
TEST_F(TourOverlayViewTest, CentresSpinnerAndTextTogether) {
  const ViewContent content = contentOfSize({460.0, 96.0});
  EXPECT_EQ(elementAt<SpinnerElement>(content, 0).frame, (Rect{{73.875, 36.0}, {24.0, 24.0}}));
  EXPECT_EQ(elementAt<TextElement>(content, 1).frame, (Rect{{113.875, 34.25}, {272.25, 27.5}}));
}

TEST_F(TourOverlayViewTest, ShortensTheTextToKeep28PointsFreeOnBothSides) {
  const ViewContent content = contentOfSize({200.0, 96.0});
  EXPECT_EQ(elementAt<SpinnerElement>(content, 0).frame.minX(), 28.0);
  EXPECT_EQ(elementAt<TextElement>(content, 1).frame.minX(), 68.0);
  EXPECT_EQ(elementAt<TextElement>(content, 1).frame.maxX(), 172.0);
}

}  // namespace
}  // namespace roomlattice::tests
