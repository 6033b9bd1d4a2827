#include "labels/SignView.h"

#include "preferences/PreferencesStore.h"
#include "tests/support/ShownElement.h"
#include "tests/support/SimulatedFixture.h"

#include <optional>
#include <string>
#include <variant>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::FontWeight;
using platform::Rect;
using platform::TextElement;
using platform::View;

class CountingHost final : public platform::ViewHost {
 public:
  void viewChanged() override { ++changes; }
  platform::TextField* textField() override { return nullptr; }
  void cancelMenuTracking() override {}

  int changes = 0;
};

class SignViewTest : public SimulatedFixture {
 protected:
  static ShownElement<TextElement> textOf(const View& view) { return elementAt<TextElement>(view.content(), 0); }
};

TEST_F(SignViewTest, IsADarkPlateWithRoundCorners) {
  const SignView view(platform(), PreferencesStore::shared(), "Mail");
  EXPECT_EQ(view.content().background, (Color{0.0, 0.0, 0.0, 0.78}));
  EXPECT_EQ(view.content().cornerRadius, 40.0);
  EXPECT_EQ(view.content().elements.size(), 1U);
}

TEST_F(SignViewTest, ShowsTheNameInHeavyWhiteCentredType) {
  const SignView view(platform(), PreferencesStore::shared(), "Mail");
  const auto text = textOf(view);
  EXPECT_EQ(text.text, "Mail");
  EXPECT_EQ(text.font, (platform::Font{platform::FontFamily::System, 160.0, FontWeight::Heavy}));
  EXPECT_EQ(std::get<Color>(text.color), (Color{1.0, 1.0, 1.0, 1.0}));
  EXPECT_EQ(text.alignment, platform::TextAlignment::Center);
  EXPECT_FALSE(text.hidden);
}

TEST_F(SignViewTest, StartsWithoutAFrame) {
  EXPECT_EQ(SignView(platform(), PreferencesStore::shared(), "Mail").frame(), Rect());
}

TEST_F(SignViewTest, CentresTheTextOnThePlate) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  view.setFrame({{}, {560.0, 320.0}});
  EXPECT_EQ(textOf(view).frame, (Rect{{80.0, 60.0}, {400.0, 200.0}}));
}

TEST_F(SignViewTest, KeepsFortyPointsFreeOnBothSidesOfALongText) {
  SignView view(platform(), PreferencesStore::shared(), "A name that is too long");
  view.setFrame({{}, {1296.0, 320.0}});
  EXPECT_EQ(textOf(view).frame, (Rect{{40.0, 60.0}, {1216.0, 200.0}}));
}

TEST_F(SignViewTest, LetsATextFillThePlateUpToItsMargins) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  view.setFrame({{}, {480.0, 320.0}});
  EXPECT_EQ(textOf(view).frame, (Rect{{40.0, 60.0}, {400.0, 200.0}}));
}

TEST_F(SignViewTest, CentresATextThatIsHigherThanThePlate) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  view.setFrame({{}, {560.0, 100.0}});
  EXPECT_EQ(textOf(view).frame, (Rect{{80.0, -50.0}, {400.0, 200.0}}));
}

TEST_F(SignViewTest, GivesTheTextNoWidthOnAPlateNarrowerThanItsMargins) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  view.setFrame({{}, {60.0, 320.0}});
  EXPECT_EQ(textOf(view).frame, (Rect{{30.0, 60.0}, {0.0, 200.0}}));
}

TEST_F(SignViewTest, ShowsAnEmptyNameAsAnEmptyPlate) {
  SignView view(platform(), PreferencesStore::shared(), "");
  view.setFrame({{}, {160.0, 320.0}});
  EXPECT_EQ(textOf(view).text, "");
  EXPECT_EQ(textOf(view).frame, (Rect{{80.0, 60.0}, {0.0, 200.0}}));
}

TEST_F(SignViewTest, TakesItsSizeFromThePreferences) {
  PreferencesStore::shared().setSignTextSize(80.0);
  const SignView view(platform(), PreferencesStore::shared(), "Mail");
  EXPECT_EQ(textOf(view).font.size, 80.0);
}

TEST_F(SignViewTest, FollowsThePreferencesAtOnce) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  view.setFrame({{}, {560.0, 320.0}});
  PreferencesStore::shared().setSignTextSize(80.0);
  EXPECT_EQ(textOf(view).font, (platform::Font{platform::FontFamily::System, 80.0, FontWeight::Heavy}));
  EXPECT_EQ(textOf(view).frame, (Rect{{180.0, 110.0}, {200.0, 100.0}}));
  EXPECT_EQ(view.frame(), (Rect{{}, {560.0, 320.0}}));
}

TEST_F(SignViewTest, KeepsItsFontUntilAChangeIsAnnounced) {
  const SignView view(platform(), PreferencesStore::shared(), "Mail");
  desktop.storedDefaults()["SignTextSize"] = 80.0;
  EXPECT_EQ(textOf(view).font.size, 160.0);
}

TEST_F(SignViewTest, TellsItsHostWhenTheTextOrTheFontChanges) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  CountingHost host;
  view.setHost(&host);
  view.setText("Code");
  EXPECT_EQ(host.changes, 1);
  EXPECT_EQ(textOf(view).text, "Code");
  PreferencesStore::shared().setSignTextSize(80.0);
  EXPECT_EQ(host.changes, 2);
}

TEST_F(SignViewTest, LeavesItsHostAloneWhenNothingChanges) {
  SignView view(platform(), PreferencesStore::shared(), "Mail");
  CountingHost host;
  view.setHost(&host);
  view.setText("Mail");
  PreferencesStore::shared().setSignTextSize(160.0);
  PreferencesStore::shared().setSignSwipeAlpha(0.5);
  EXPECT_EQ(host.changes, 0);
}

TEST_F(SignViewTest, HasNothingToDoWithThePreferencesOnceItHasGone) {
  std::optional<SignView> view(std::in_place, platform(), PreferencesStore::shared(), "Mail");
  CountingHost host;
  view->setHost(&host);
  view.reset();
  PreferencesStore::shared().setSignTextSize(80.0);
  EXPECT_EQ(host.changes, 0);
}

}  // namespace
}  // namespace roomlattice::tests
