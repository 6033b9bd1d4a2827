#include "platform/NativePlatform.h"
#include "platform/x11/preferences/ColorWell.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"
#include "support/Installation.h"
#include "tests/x11/session/X11Session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <array>
#include <gtest/gtest.h>
#include <variant>

namespace roomlattice::tests {
namespace {

constexpr int desktops = 16;

/// The preferences window as the program fills it, with a system font of so many points.
class PreferencesLayoutTest : public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), GetParam()));
    std::vector<SpaceInfo> spaces;
    for (SpaceID id = 1; id <= desktops; ++id) {
      spaces.push_back({id, "desktop-" + std::to_string(id), "screen", 0});
    }
    SpaceManager::shared().update(spaces, 1);
    SpaceManager::shared().setName("A desktop with quite a long name", spaces[1]);
    PreferencesWindowController::shared().showWindow();
    ASSERT_TRUE(waitFor([] { return tabs() != nullptr && tabs()->isVisible(); }));
  }

  static QTabWidget* tabs() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* found = widget->findChild<QTabWidget*>()) {
        return found;
      }
    }
    return nullptr;
  }

  /// The controls of each page, which is turned to.
  static void forEachPage(const std::function<void(const QString& page, const QList<QWidget*>& controls)>& look) {
    for (int index = 0; index < tabs()->count(); ++index) {
      tabs()->setCurrentIndex(index);
      QWidget* content = dynamic_cast<QScrollArea&>(*tabs()->widget(index)).widget();
      look(tabs()->tabText(index), content->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    }
  }

  template <class Button>
  static Button* button(const QString& text) {
    for (Button* found : tabs()->findChildren<Button*>()) {
      if (found->text() == text) {
        return found;
      }
    }
    return nullptr;
  }

  using SpaceID = platform::SpaceID;

  X11Session session_;
  std::string name_ = "roomlattice-test";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::variant<std::unique_ptr<platform::Platform>, platform::ExitStatus> platform_ =
      platform::makeNativePlatform(count_, arguments_.data());
  Installation installation_{*std::get<std::unique_ptr<platform::Platform>>(platform_)};
};

std::string describe(const QString& page, const QWidget& control) {
  const auto* label = dynamic_cast<const QLabel*>(&control);
  const auto* button = dynamic_cast<const QAbstractButton*>(&control);
  const QString text = label != nullptr ? label->text() : button != nullptr ? button->text() : control.accessibleName();
  return (page + QStringLiteral(": ") + text).toStdString();
}

/// A name of the user's own may be of any length, and is told by a tool tip then.
bool isNameOfADesktop(const QLabel& label) {
  return label.text().startsWith(QStringLiteral("    "));
}

/// The height that all of its text takes in the width it has.
int neededHeight(const QLabel& label) {
  return label.wordWrap() ? label.heightForWidth(label.width()) : label.sizeHint().height();
}

TEST_P(PreferencesLayoutTest, CutsNoText) {
  forEachPage([](const QString& page, const QList<QWidget*>& controls) {
    for (const QWidget* control : controls) {
      if (const auto* label = dynamic_cast<const QLabel*>(control)) {
        EXPECT_GE(label->height() + 1, neededHeight(*label)) << describe(page, *control);
        // Letters that are somewhat narrower can be read as well.
        EXPECT_TRUE(label->wordWrap() || isNameOfADesktop(*label) ||
                    label->width() + 1 >= label->sizeHint().width() * 0.8)
            << describe(page, *control);
      } else if (dynamic_cast<const QAbstractButton*>(control) != nullptr ||
                 dynamic_cast<const QComboBox*>(control) != nullptr) {
        EXPECT_GE(control->height() + 1, control->sizeHint().height()) << describe(page, *control);
        EXPECT_GE(control->width() + 1, control->sizeHint().width()) << describe(page, *control);
      }
    }
  });
}

TEST_P(PreferencesLayoutTest, PushesNothingDownForALongName) {
  forEachPage([](const QString&, const QList<QWidget*>& controls) {
    std::vector<int> tops;
    for (const QWidget* control : controls) {
      if (dynamic_cast<const platform::x11::ColorWell*>(control) != nullptr) {
        tops.push_back(control->y());
      }
    }
    for (std::size_t well = 2; well < tops.size(); ++well) {
      EXPECT_EQ(tops[well] - tops[well - 1], tops[1] - tops[0]) << "of the well " << well;
    }
  });
}

TEST_P(PreferencesLayoutTest, LaysNothingOverAnything) {
  forEachPage([](const QString& page, const QList<QWidget*>& controls) {
    for (const QWidget* one : controls) {
      for (const QWidget* other : controls) {
        EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
            << describe(page, *one) << " and " << describe(page, *other);
      }
    }
  });
}

TEST_P(PreferencesLayoutTest, LetsEveryControlBeScrolledTo) {
  forEachPage([](const QString& page, const QList<QWidget*>& controls) {
    for (const QWidget* control : controls) {
      EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry())) << describe(page, *control);
    }
  });
}

INSTANTIATE_TEST_SUITE_P(WithSystemFontsOf, PreferencesLayoutTest, ::testing::Values(9, 13, 18));

class PreferencesLayoutClipboardTest : public PreferencesLayoutTest {};

TEST_P(PreferencesLayoutClipboardTest, IsTheCommandThatTheUserCanRun) {
  auto* copy = button<QPushButton>(QStringLiteral("Copy Command"));
  ASSERT_NE(copy, nullptr);
  copy->click();
  EXPECT_TRUE(waitFor([] { return QGuiApplication::clipboard()->text().endsWith(QStringLiteral(" --recent-log")); }));
}

INSTANTIATE_TEST_SUITE_P(WithASystemFontOf, PreferencesLayoutClipboardTest, ::testing::Values(9));

}  // namespace
}  // namespace roomlattice::tests
