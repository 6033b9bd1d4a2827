#include "platform/x11/statusitem/MenuKeepingApplication.h"

#include "tests/x11/session/EveryWindowManager.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/WindowProbe.h"

#include <QMenu>

namespace roomlattice::tests {
namespace {

class MenuKeepingApplicationTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  X11Session session_{{.windowManager = GetParam()}};
  QtApplication qt_;
};

TEST_P(MenuKeepingApplicationTest, StayOpenWhenItsWindowLosesTheKeyboard) {
  QWidget ordinary;
  ordinary.setGeometry(100, 100, 200, 100);
  ordinary.show();
  qt_.application().activateIgnoringOtherApps();
  ASSERT_TRUE(waitFor([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
  QMenu menu;
  menu.addAction(QStringLiteral("Item"));
  menu.popup({600, 10});
  ASSERT_TRUE(waitFor([&] { return QApplication::activePopupWidget() == &menu; }));
  const PlainWindow other({500, 350, 300, 150}, Qt::green);
  ASSERT_TRUE(waitFor([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
  EXPECT_EQ(QApplication::activePopupWidget(), &menu);
  menu.close();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(OnEvery, MenuKeepingApplicationTest, everyWindowManager(),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests
