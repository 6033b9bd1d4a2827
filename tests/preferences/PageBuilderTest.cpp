#include "preferences/PageBuilder.h"

#include "tests/support/SimulatedFixture.h"

#include <string>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::LabelControl;
using platform::PlacedControl;
using platform::Rect;

class PageBuilderTest : public SimulatedFixture {
 protected:
  platform::TabPage built(const PageBuilder& pageBuilder) { return pageBuilder.build("page", "Page"); }

  PageBuilder builder{platform().userInterface(), 10.0};
};

std::vector<Rect> frames(const platform::TabPage& page) {
  std::vector<Rect> frames;
  for (const PlacedControl& control : page.controls) {
    frames.push_back(control.frame);
  }
  return frames;
}

// Sizes, with a label's characters 6.5 points wide at 13 points, and 6.90625 in the medium weight of a row's label: a
// label 16.25 high, a slider 96 × 20, a check box its text and 20 × 18.25, a button its text and 32 × 24.25, a pop-up
// its widest item and 40 × 24.25.

TEST_F(PageBuilderTest, MakesAPageOfTheSharedSize) {
  const platform::TabPage page = built(builder);
  EXPECT_EQ(page.identifier, "page");
  EXPECT_EQ(page.label, "Page");
  EXPECT_EQ(page.size, (platform::Size{490.0, 400.0}));
  EXPECT_TRUE(page.controls.empty());
}

TEST_F(PageBuilderTest, HangsControlsBelowEachOtherFromTheTop) {
  EXPECT_EQ(builder.add(LabelControl{.text = "Four"}), 0U);
  EXPECT_EQ(builder.add(platform::PushButtonControl{.title = "Button"}), 1U);
  EXPECT_EQ(builder.add(platform::CheckBoxControl{.title = "Box"}), 2U);
  EXPECT_EQ(frames(built(builder)),
            (std::vector<Rect>{
                {{20.0, 359.75}, {26.0, 16.25}}, {{20.0, 325.5}, {71.0, 24.25}}, {{20.0, 297.25}, {39.5, 18.25}}}));
}

TEST_F(PageBuilderTest, GivesAControlAStatedWidth) {
  builder.add(LabelControl{.text = "Four"}, 440.0);
  EXPECT_EQ(frames(built(builder)), (std::vector<Rect>{{{20.0, 359.75}, {440.0, 16.25}}}));
}

TEST_F(PageBuilderTest, StartsTheControlsOfAllRowsAtOnePlace) {
  builder.addRow("Short:", platform::ColorWellControl{});
  builder.addRow("A longer label:", platform::ColorWellControl{});
  EXPECT_EQ(frames(built(builder)), (std::vector<Rect>{{{20.0, 355.875}, {160.0, 16.25}},
                                                       {{192.0, 352.0}, {44.0, 24.0}},
                                                       {{20.0, 321.875}, {160.0, 16.25}},
                                                       {{192.0, 318.0}, {44.0, 24.0}}}));
}

TEST_F(PageBuilderTest, LabelsRowsInTheMediumFont) {
  builder.addRow("Short:", platform::SliderControl{});
  const auto label = std::get<LabelControl>(built(builder).controls.at(0).control);
  EXPECT_EQ(label.text, "Short:");
  EXPECT_EQ(label.font, (platform::Font{.size = 13.0, .weight = platform::FontWeight::Medium}));
  EXPECT_EQ(label.wrapWidth, std::nullopt);
}

TEST_F(PageBuilderTest, WidensSlidersOnRequest) {
  builder.addRow("One:", platform::SliderControl{}, PageBuilder::RowWidth::Slider);
  builder.addRow("Two:", platform::SliderControl{});
  const platform::TabPage page = built(builder);
  EXPECT_EQ(page.controls.at(1).frame, (Rect{{192.0, 356.0}, {240.0, 20.0}}));
  EXPECT_EQ(page.controls.at(3).frame, (Rect{{192.0, 326.0}, {96.0, 20.0}}));
}

TEST_F(PageBuilderTest, MakesPopUpsAsWideAsTheyNeedButNotNarrow) {
  builder.addRow("One:", platform::PopUpControl{.items = {"Mail"}});
  builder.addRow("Two:", platform::PopUpControl{.items = {"x", std::string(40, 'x')}});
  const platform::TabPage page = built(builder);
  EXPECT_EQ(page.controls.at(1).frame, (Rect{{192.0, 351.75}, {180.0, 24.25}}));
  EXPECT_EQ(page.controls.at(3).frame, (Rect{{192.0, 317.5}, {300.0, 24.25}}));
}

TEST_F(PageBuilderTest, CountsTheLabelsOfRowsAsControls) {
  builder.addRow("One:", platform::SliderControl{});
  EXPECT_EQ(builder.add(LabelControl{.text = "Two"}), 2U);
}

TEST_F(PageBuilderTest, NamesTheControlOfARowAfterItsLabel) {
  builder.addRow("Palette:", platform::PopUpControl{});
  builder.addRow("    Desktop 1", platform::ColorWellControl{});
  builder.addRow("a:b", platform::SliderControl{});
  const platform::TabPage page = built(builder);
  EXPECT_EQ(page.controls.at(1).accessibilityLabel, "Palette");
  EXPECT_EQ(page.controls.at(3).accessibilityLabel, "Desktop 1");
  EXPECT_EQ(page.controls.at(5).accessibilityLabel, "a:b");
}

TEST_F(PageBuilderTest, KeepsALabelThatIsLongerThanItsPlaceInOneLine) {
  builder.addRow("Label Opacity During Swipe:", platform::SliderControl{});
  const platform::TabPage page = built(builder);
  EXPECT_EQ(page.controls.at(0).frame, (Rect{{20.0, 357.875}, {160.0, 16.25}}));
  EXPECT_EQ(std::get<LabelControl>(page.controls.at(0).control).wrapWidth, std::nullopt);
  EXPECT_EQ(page.controls.at(1).frame, (Rect{{192.0, 356.0}, {96.0, 20.0}}));
}

TEST_F(PageBuilderTest, GoesOnBelowThePageWhenItIsFull) {
  for (int row = 0; row < 16; ++row) {
    builder.addRow("Desktop", platform::ColorWellControl{});
  }
  EXPECT_EQ(built(builder).controls.back().frame, (Rect{{192.0, -158.0}, {44.0, 24.0}}));
}

}  // namespace
}  // namespace roomlattice::tests
