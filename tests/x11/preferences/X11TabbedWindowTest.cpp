#include "platform/x11/preferences/X11TabbedWindow.h"

#include "tests/x11/session/UserInterfaceFixture.h"
#include "tests/x11/session/WindowProbe.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QSlider>
#include <QTabWidget>
#include <QToolTip>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::CheckBoxControl;
using platform::CheckState;
using platform::Control;
using platform::PopUpControl;
using platform::PushButtonControl;
using platform::SelectableTextControl;
using platform::SliderControl;
using platform::TabbedWindow;
using platform::TabbedWindowModel;
using platform::TabPage;
using ::testing::ElementsAre;

class X11TabbedWindowTest : public ::testing::Test {
 protected:
  struct NamedControl {
    NamedControl(Control what, std::string name = {}) : control(std::move(what)), accessibilityLabel(std::move(name)) {}
    template <class Kind>
    NamedControl(Kind what) : control(std::move(what)) {}

    Control control;
    std::string accessibilityLabel;
  };

  struct Page {
    std::string label;
    std::vector<NamedControl> controls;
  };

  void showPage(const std::vector<NamedControl>& controls) { showPages({{"Page", controls}}); }

  /// The controls of each page stand below one another.
  void showPages(const std::vector<Page>& pages) {
    TabbedWindowModel model{
        .title = "Panel", .contentSize = {420.0, 360.0}, .tabFrame = {{0.0, 0.0}, {420.0, 360.0}}, .pages = {}};
    for (const Page& page : pages) {
      TabPage& placed = model.pages.emplace_back(
          TabPage{.identifier = page.label, .label = page.label, .size = {400.0, 300.0}, .controls = {}});
      double y = 260.0;
      for (const NamedControl& named : page.controls) {
        placed.controls.push_back({{{20.0, y}, {200.0, 24.0}}, named.control, named.accessibilityLabel});
        y -= 40.0;
      }
    }
    panel_ = ui_.userInterface.createTabbedWindow(model);
    panel_->show();
    ASSERT_TRUE(waitFor([] { return window() != nullptr && window()->isActiveWindow(); }));
  }

  static QWidget* window() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->windowTitle() == QStringLiteral("Panel")) {
        return widget;
      }
    }
    return nullptr;
  }

  void press(const std::string& keys) { ui_.session.run({"xdotool", "key", keys}); }

  UserInterfaceSession ui_;
  std::unique_ptr<TabbedWindow> panel_;
};

std::string nameOf(QWidget* widget) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
  return interface == nullptr ? "" : interface->text(QAccessible::Name).toStdString();
}

QAccessible::Role roleOf(QWidget* widget) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
  return interface == nullptr ? QAccessible::NoRole : interface->role();
}

PushButtonControl button(const std::string& title) {
  return {.title = title, .action = [] {}};
}

TEST_F(X11TabbedWindowTest, IsReachedByTheKeyboardFromControlToControl) {
  showPage({CheckBoxControl{.title = "Check", .action = [](CheckState) {}},
            button("Push"),
            {SelectableTextControl{.text = "text"}, "Text"}});
  std::vector<std::string> visited;
  for (int step = 0; step < 3; ++step) {
    QWidget* before = window()->focusWidget();
    press("Tab");
    ASSERT_TRUE(waitFor([&] { return window()->focusWidget() != before; }));
    visited.push_back(nameOf(window()->focusWidget()));
  }
  EXPECT_THAT(visited, ElementsAre("Check", "Push", "Text"));
}

TEST_F(X11TabbedWindowTest, TellsWhatABoxHasBecome) {
  std::vector<CheckState> told;
  const auto tell = [&told](CheckState state) { told.push_back(state); };
  showPage({CheckBoxControl{.title = "Off", .state = CheckState::Off, .action = tell},
            CheckBoxControl{.title = "On", .state = CheckState::On, .action = tell},
            CheckBoxControl{.title = "Mixed", .state = CheckState::Mixed, .action = tell}});
  for (std::size_t box = 1; box <= 3; ++box) {
    press("Tab");
    press("space");
    ASSERT_TRUE(waitFor([&] { return told.size() == box; }));
  }
  press("space");
  ASSERT_TRUE(waitFor([&] { return told.size() == 4; }));
  EXPECT_THAT(told, ElementsAre(CheckState::On, CheckState::Off, CheckState::Off, CheckState::On));
}

TEST_F(X11TabbedWindowTest, TurnsItsPagesByTheKeyboardWhateverControlHasIt) {
  showPages({{"First", {PopUpControl{.items = {"One", "Two"}, .action = [](int) {}}}}, {"Second", {button("Push")}}});
  auto* tabs = window()->findChild<QTabWidget*>();
  const auto page = [tabs](int index) { return [tabs, index] { return tabs->currentIndex() == index; }; };
  press("Tab");
  ASSERT_TRUE(waitFor([] { return dynamic_cast<QComboBox*>(window()->focusWidget()) != nullptr; }));
  press("ctrl+Tab");
  EXPECT_TRUE(waitFor(page(1)));
  press("ctrl+Tab");
  EXPECT_TRUE(waitFor(page(0)));
  press("ctrl+shift+Tab");
  EXPECT_TRUE(waitFor(page(1)));
}

TEST_F(X11TabbedWindowTest, TellsScreenReadersNamesAndRoles) {
  showPage({{SliderControl{}, "Size"}, {platform::ColorWellControl{}, "Shade"}, button("Push")});
  std::map<std::string, QAccessible::Role> roles;
  for (QWidget* widget : window()->findChildren<QWidget*>()) {
    roles[nameOf(widget)] = roleOf(widget);
  }
  EXPECT_EQ(roles["Size"], QAccessible::Slider);
  EXPECT_EQ(roles["Shade"], QAccessible::Button);
  EXPECT_EQ(roles["Push"], QAccessible::Button);
}

TEST_F(X11TabbedWindowTest, TellsScreenReadersTheLabelOfAPopUp) {
  showPage({platform::LabelControl{.text = "Choice:"}, PopUpControl{.items = {"One"}, .action = [](int) {}}});
  QAccessibleInterface* popUp = QAccessible::queryAccessibleInterface(window()->findChild<QComboBox*>());
  ASSERT_NE(popUp, nullptr);
  EXPECT_EQ(popUp->role(), QAccessible::ComboBox);
  const auto labels = popUp->relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(labels.first().first->text(QAccessible::Name), QStringLiteral("Choice:"));
}

TEST_F(X11TabbedWindowTest, GivesTheKeyboardBackToAButtonThatWasDisabledForAWhile) {
  showPage({button("Gather"), {SelectableTextControl{.text = "text"}, "Text"}});
  press("Tab");
  ASSERT_TRUE(waitFor([] { return nameOf(window()->focusWidget()) == "Gather"; }));
  panel_->setEnabled({0, 0}, false);
  EXPECT_EQ(window()->focusWidget(), nullptr);
  panel_->setEnabled({0, 0}, true);
  EXPECT_EQ(nameOf(window()->focusWidget()), "Gather");
}

TEST_F(X11TabbedWindowTest, LeavesTheKeyboardWhereTheUserHasTakenItMeanwhile) {
  showPage({button("Gather"), {SelectableTextControl{.text = "text"}, "Text"}});
  press("Tab");
  ASSERT_TRUE(waitFor([] { return nameOf(window()->focusWidget()) == "Gather"; }));
  panel_->setEnabled({0, 0}, false);
  for (QWidget* widget : window()->findChildren<QWidget*>()) {
    if (nameOf(widget) == "Text") {
      widget->setFocus();
    }
  }
  panel_->setEnabled({0, 0}, true);
  EXPECT_EQ(nameOf(window()->focusWidget()), "Text");
}

TEST_F(X11TabbedWindowTest, OffersNeitherToMinimizeNorToMaximizeIt) {
  // The second number of these hints: 2 is to resize, 4 to move, 8 to minimize, 16 to maximize, 32 to close a window.
  showPage({button("Push")});
  const std::string hints = ui_.session.run({"xprop", "-notype", "-id", std::to_string(window()->winId()), "-f",
                                             "_MOTIF_WM_HINTS", "32x", "_MOTIF_WM_HINTS"});
  EXPECT_THAT(hints, ::testing::HasSubstr(", 0x26, "));
}

TEST_F(X11TabbedWindowTest, CannotBeMinimizedOrMaximizedInAWindowManagerThatGivesAllButtonsToOrdinaryWindows) {
  showPage({button("Push")});
  const auto actions = [this] {
    return ui_.session.run({"xprop", "-id", std::to_string(window()->winId()), "_NET_WM_ALLOWED_ACTIONS"});
  };
  ASSERT_THAT(actions(), ::testing::HasSubstr("_NET_WM_ACTION_CLOSE"));
  EXPECT_THAT(actions(), ::testing::Not(::testing::HasSubstr("_NET_WM_ACTION_MINIMIZE")));
  EXPECT_THAT(actions(), ::testing::Not(::testing::HasSubstr("_NET_WM_ACTION_MAXIMIZE")));
}

TEST_F(X11TabbedWindowTest, CarriesTheIconOfTheProgramAndTheNameOfItsDesktopEntry) {
  showPage({button("Push")});
  const auto property = [this](const std::string& name) {
    return ui_.session.run({"xprop", "-id", std::to_string(window()->winId()), name});
  };
  EXPECT_THAT(property("_NET_WM_ICON"), ::testing::HasSubstr("Icon (64 x 64)"));
  EXPECT_THAT(property("_KDE_NET_WM_DESKTOP_FILE"), ::testing::HasSubstr("\"roomlattice\""));
}

TEST_F(X11TabbedWindowTest, TellsTheValueOfASliderAsPeopleSayIt) {
  showPage({SliderControl{.value = 0.78, .minimum = 0.1, .maximum = 1.0},
            SliderControl{.value = 160.0, .minimum = 60.0, .maximum = 300.0}});
  const auto sliders = window()->findChildren<QSlider*>();
  ASSERT_EQ(sliders.size(), 2);
  EXPECT_EQ(sliders[0]->toolTip(), QStringLiteral("78 %"));
  sliders[1]->setValue(161);
  EXPECT_EQ(sliders[1]->toolTip(), QStringLiteral("161"));
  EXPECT_EQ(sliders[1]->accessibleDescription(), QStringLiteral("161"));
  EXPECT_EQ(QToolTip::text(), QStringLiteral("161"));
}

TEST_F(X11TabbedWindowTest, StandsInTheMiddleOfTheScreen) {
  showPage({button("Push")});
  const QPoint middle = window()->screen()->availableGeometry().center();
  // As the server has it: the toolkit may have asked for the frame around the window before that had its size.
  const WindowProbe panel(ui_.connection(), static_cast<xcb_window_t>(window()->winId()));
  EXPECT_TRUE(waitFor([&] {
    const std::optional<QRect> frame = panel.geometry();
    return frame && (frame->center() - middle).manhattanLength() < 40;
  }));
}

TEST_F(X11TabbedWindowTest, MovesASliderByTheKeyboardInHundredths) {
  std::vector<double> values;
  showPage({SliderControl{.value = 0.78, .action = [&values](double value) { values.push_back(value); }}});
  press("Tab");
  ASSERT_TRUE(waitFor([] { return dynamic_cast<QSlider*>(window()->focusWidget()) != nullptr; }));
  for (const char* key : {"Right", "Right", "Left", "End", "Right"}) {
    press(key);
  }
  EXPECT_TRUE(waitFor([&] { return values.size() == 4; }));
  EXPECT_THAT(values, ElementsAre(0.79, 0.80, 0.79, 1.0));
}

TEST_F(X11TabbedWindowTest, ComesBackAfterItWasClosed) {
  showPage({button("Push"), {SelectableTextControl{.text = "text"}, "Text"}});
  for (const char* key : {"ctrl+w", "Escape"}) {
    press(key);
    ASSERT_TRUE(waitFor([] { return !window()->isVisible(); })) << key;
    panel_->show();
    EXPECT_TRUE(waitFor([] { return window()->isActiveWindow(); })) << key;
  }
}

TEST_F(X11TabbedWindowTest, StaysWhenTheEscapeKeyClosesTheChoicesOfAPopUp) {
  showPage({PopUpControl{.items = {"One", "Two"}, .action = [](int) {}}});
  const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
  press("Tab");
  ASSERT_TRUE(waitFor([] { return dynamic_cast<QComboBox*>(window()->focusWidget()) != nullptr; }));
  press("space");
  ASSERT_TRUE(waitFor(isOpen));
  press("Escape");
  EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
  EXPECT_TRUE(window()->isVisible());
}

}  // namespace
}  // namespace roomlattice::tests
