#include "tests/x11/session/UserInterfaceFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <cmath>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Color;
using ::testing::IsEmpty;

const QColor green(0, 255, 0, 102);

class ColorWellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::TabPage page{.identifier = "page", .label = "Page", .size = {200.0, 100.0}, .controls = {}};
    page.controls.push_back({{{20.0, 20.0}, {60.0, 24.0}},
                             platform::ColorWellControl{.color = {1.0, 0.0, 0.0},
                                                        .tag = 7,
                                                        .action =
                                                            [this](std::int64_t tag, const Color& color) {
                                                              EXPECT_EQ(tag, 7);
                                                              chosen_.push_back(color);
                                                            }},
                             "Shade"});
    panel_ = ui_.userInterface.createTabbedWindow(
        {.title = "Panel", .contentSize = {240.0, 200.0}, .tabFrame = {{0.0, 0.0}, {240.0, 200.0}}, .pages = {page}});
    panel_->show();
    ASSERT_TRUE(waitFor([] { return window() != nullptr && window()->isActiveWindow(); }));
    ui_.session.run({"xdotool", "key", "Tab", "space"});
    // Keys go to the window that has the keyboard, and the dialog is to be seen before it has.
    ASSERT_TRUE(waitFor([] { return dialog() != nullptr && dialog()->isActiveWindow(); }));
  }

  static QWidget* window() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->windowTitle() == QStringLiteral("Panel")) {
        return widget;
      }
    }
    return nullptr;
  }

  static QColorDialog* dialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* found = dynamic_cast<QColorDialog*>(widget)) {
        return found;
      }
    }
    return nullptr;
  }

  bool isLastChosen(const QColor& color) const {
    const auto near = [](double component, float wanted) { return std::abs(component - wanted) < 0.001; };
    return !chosen_.empty() && near(chosen_.back().red, color.redF()) && near(chosen_.back().green, color.greenF()) &&
           near(chosen_.back().blue, color.blueF()) && near(chosen_.back().alpha, color.alphaF());
  }

  static bool dialogHasGone() {
    return waitFor([] { return dialog() == nullptr; });
  }

  UserInterfaceSession ui_;
  std::vector<Color> chosen_;
  std::unique_ptr<platform::TabbedWindow> panel_;
};

TEST_F(ColorWellTest, ShowsItsColorInADialogWithOpacity) {
  EXPECT_EQ(dialog()->currentColor(), QColor(255, 0, 0));
  EXPECT_TRUE(dialog()->testOption(QColorDialog::ShowAlphaChannel));
  EXPECT_EQ(dialog()->windowTitle(), QStringLiteral("Color: Shade"));
  EXPECT_THAT(chosen_, IsEmpty());
}

TEST_F(ColorWellTest, TellsEveryColorAsItIsChosen) {
  dialog()->setCurrentColor(green);
  EXPECT_TRUE(isLastChosen(green));
  dialog()->setCurrentColor(Qt::blue);
  EXPECT_TRUE(isLastChosen(Qt::blue));
  ui_.session.run({"xdotool", "key", "Return"});
  EXPECT_TRUE(dialogHasGone());
  EXPECT_TRUE(isLastChosen(Qt::blue));
}

TEST_F(ColorWellTest, TellsTheFormerColorWhenTheDialogIsCancelled) {
  dialog()->setCurrentColor(green);
  ASSERT_TRUE(isLastChosen(green));
  ui_.session.run({"xdotool", "key", "Escape"});
  EXPECT_TRUE(dialogHasGone());
  EXPECT_TRUE(isLastChosen(Qt::red));
}

TEST_F(ColorWellTest, TellsNothingWhenTheDialogIsCancelledWithoutAChange) {
  ui_.session.run({"xdotool", "key", "Escape"});
  EXPECT_TRUE(dialogHasGone());
  EXPECT_THAT(chosen_, IsEmpty());
}

TEST_F(ColorWellTest, LetsNothingElseBeChangedInTheWindowMeanwhile) {
  EXPECT_EQ(dialog()->windowModality(), Qt::WindowModal);
  EXPECT_EQ(dialog()->parentWidget(), window());
}

TEST_F(ColorWellTest, KeepsTheColorWhenTheWindowGoes) {
  dialog()->setCurrentColor(green);
  window()->close();
  EXPECT_TRUE(dialogHasGone());
  EXPECT_TRUE(isLastChosen(green));
}

}  // namespace
}  // namespace roomlattice::tests
