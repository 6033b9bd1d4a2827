#include "platform/x11/statusitem/X11StatusItem.h"

#include "tests/linux/tray/FakeTray.h"
#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/UserInterfaceFixture.h"

#include <QApplication>
#include <QDBusArgument>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <sys/prctl.h>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::StatusButtonContent;
using platform::VariableLength;
using platform::x11::FloatingItem;

/// The second desktop, in red.
const StatusButtonContent secondDesktop{.title = {.text = " Desktop 2 ", .color = Color::white(), .number = 2},
                                        .background = Color{1.0, 0.0, 0.0}};

bool isFloating() {
  return std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* window) {
    return dynamic_cast<FloatingItem*>(window) != nullptr && window->isVisible();
  });
}

class X11StatusItemTest : public ::testing::Test {
 protected:
  void show(const StatusButtonContent& content = secondDesktop) {
    item_ = ui_.userInterface.createStatusItem(VariableLength{});
    item_->button()->setContent(content);
  }

  bool isInPanel() {
    return waitFor([this] { return tray_.items().size() == 1 && tray_.isOnTheBus(tray_.items().front()); });
  }

  bool leavesPanel() {
    return waitFor([this] { return !tray_.isOnTheBus(tray_.items().front()); });
  }

  /// Calls a method of the menu that the panel shows in the program's stead.
  QDBusMessage callMenu(const QString& method, const QVariantList& arguments) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(tray_.items().front(), QStringLiteral("/StatusNotifierItem/Menu"),
                                       QStringLiteral("com.canonical.dbusmenu"), method);
    question.setArguments(arguments);
    return tray_.ask(question);
  }

  std::vector<int> separatorsOfMenu() {
    const QDBusMessage answer =
        callMenu(QStringLiteral("GetGroupProperties"), {QVariant::fromValue(QList<int>()), QStringList()});
    const auto items = answer.arguments().value(0).value<QDBusArgument>();
    std::vector<int> separators;
    items.beginArray();
    while (!items.atEnd()) {
      int identifier = 0;
      QVariantMap properties;
      items.beginStructure();
      items >> identifier >> properties;
      items.endStructure();
      if (properties.value(QStringLiteral("type")) == QStringLiteral("separator")) {
        separators.push_back(identifier);
      }
    }
    return separators;
  }

  UserInterfaceSession ui_;
  FakeTray tray_{ui_.session.busAddress()};
  std::unique_ptr<platform::StatusItem> item_;
};

TEST_F(X11StatusItemTest, FloatsWhereThereIsNoPanel) {
  show();
  EXPECT_TRUE(waitFor(isFloating));
}

TEST_F(X11StatusItemTest, IsInThePanelAloneWhereThereIsOne) {
  tray_.appear(TrayHost::Registered);
  show();
  EXPECT_TRUE(isInPanel());
  EXPECT_FALSE(isFloating());
}

TEST_F(X11StatusItemTest, MovesOutAndInWithThePanel) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  for (int times = 0; times < 2; ++times) {
    tray_.disappear();
    EXPECT_TRUE(waitFor(isFloating));
    tray_.appear(TrayHost::Registered);
    EXPECT_TRUE(isInPanel());
    EXPECT_TRUE(waitFor([] { return !isFloating(); }));
  }
}

TEST_F(X11StatusItemTest, FloatsBesideAPanelForThoseWhoWantThat) {
  tray_.appear(TrayHost::Registered);
  ui_.defaults.set("StatusItem.Place", "floating");
  show();
  EXPECT_TRUE(waitFor(isFloating));
  EXPECT_TRUE(tray_.items().isEmpty());
}

TEST_F(X11StatusItemTest, IsInBothPlacesForThoseWhoWantThat) {
  tray_.appear(TrayHost::Registered);
  ui_.defaults.set("StatusItem.Place", "both");
  show();
  EXPECT_TRUE(waitFor(isFloating));
  EXPECT_TRUE(isInPanel());
}

TEST_F(X11StatusItemTest, LeavesThePanelWithItsObject) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  item_.reset();
  EXPECT_TRUE(leavesPanel());
}

TEST_F(X11StatusItemTest, IsATileInTheDesktopsColorInEverySizeThatPanelsAskFor) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  std::vector<int> sides;
  const auto pictures = tray_.property(QStringLiteral("IconPixmap")).value<QDBusArgument>();
  pictures.beginArray();
  while (!pictures.atEnd()) {
    int width = 0;
    int height = 0;
    QByteArray pixels;
    pictures.beginStructure();
    pictures >> width >> height >> pixels;
    pictures.endStructure();
    sides.push_back(width);
    EXPECT_EQ(height, width);
    ASSERT_EQ(pixels.size(), 4 * width * height);
    // In the middle of the left side, between the edge and the number: alpha, red, green, blue.
    const int inside = 4 * (height / 2 * width + std::max(width / 8, 1));
    EXPECT_EQ(pixels.mid(inside, 4), QByteArray("\xff\xff\0\0", 4)) << width;
  }
  EXPECT_EQ(sides, (std::vector{16, 22, 24, 32, 48, 64}));
}

TEST_F(X11StatusItemTest, TellsThePanelTheWholeName) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  EXPECT_EQ(tray_.property(QStringLiteral("Title")).toString(), QStringLiteral("Desktop 2"));
  item_->button()->setContent({.title = {.text = " Mail "}});
  EXPECT_EQ(tray_.property(QStringLiteral("Title")).toString(), QStringLiteral("Mail"));
  EXPECT_EQ(tray_.property(QStringLiteral("XAyatanaLabel")).toString(), QStringLiteral("Mail"));
}

TEST_F(X11StatusItemTest, OpensItsMenuAtThePointerWhereverThePanelSaysItWasClicked) {
  platform::Menu menu;
  menu.items.emplace_back(platform::CommandItem{"Command", "", [] {}});
  tray_.appear(TrayHost::Registered);
  show();
  item_->setMenu(&menu);
  ASSERT_TRUE(isInPanel());
  ui_.session.run({"xdotool", "mousemove", "--sync", "600", "300"});
  tray_.call(QStringLiteral("Activate"), {5, 6});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  // The toolkit may have heard of its place before it hears of its size.
  const auto opensAt = [](int right, int top) {
    const QRect opened = QApplication::activePopupWidget()->geometry();
    return std::abs(opened.left() + opened.width() - right) <= 2 && std::abs(opened.top() - top) <= 2;
  };
  EXPECT_TRUE(waitFor([&] { return opensAt(600, 300); }));
}

TEST_F(X11StatusItemTest, DoesNothingForAClickThatChoosesNothing) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  const std::vector<int> separators = separatorsOfMenu();
  ASSERT_FALSE(separators.empty());
  for (const int separator : separators) {
    callMenu(QStringLiteral("Event"),
             {separator, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), QVariant(0U)});
  }
  EXPECT_EQ(tray_.property(QStringLiteral("Title")).toString(), QStringLiteral("Desktop 2"));
}

/// As a panel finds this process in the list of all, whose name is that of its first thread.
class ProgramName {
 public:
  explicit ProgramName(const char* name) {
    prctl(PR_GET_NAME, before_.data());
    prctl(PR_SET_NAME, name);
  }
  ~ProgramName() { prctl(PR_SET_NAME, before_.data()); }
  ProgramName(const ProgramName&) = delete;
  ProgramName& operator=(const ProgramName&) = delete;

 private:
  std::array<char, 16> before_{};
};

TEST_F(X11StatusItemTest, IsMadeAnewForAPanelOfAnotherKindThatFollowsWithoutAGap) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  ASSERT_TRUE(tray_.property(QStringLiteral("XAyatanaLabel")).isValid());
  const ProgramName name("mate-panel");
  FakeTray next(ui_.session.busAddress(), QStringLiteral("next-tray"));
  next.appear(TrayHost::Registered);
  tray_.disappear();
  ASSERT_TRUE(waitFor([&] { return !next.items().isEmpty() && next.isOnTheBus(next.items().front()); }));
  EXPECT_TRUE(waitFor([&] { return !next.property(QStringLiteral("XAyatanaLabel")).isValid(); }));
  EXPECT_EQ(next.property(QStringLiteral("Title")).toString(), QStringLiteral("Desktop 2"));
}

/// A screen by which the program takes the server for Xwayland.
class X11StatusItemUnderXwaylandTest : public X11StatusItemTest {
 protected:
  X11StatusItemUnderXwaylandTest() {
    ui_.session.changesMonitors();
    ui_.session.run({"xrandr", "--setmonitor", "XWAYLAND0", "1280/300x800/200+0+0", "screen"});
    EXPECT_TRUE(waitFor([] { return QGuiApplication::primaryScreen()->name() == QStringLiteral("XWAYLAND0"); }));
  }

  /// Has a panel that shows the item ask for what the right button opens.
  void openOptions() {
    tray_.appear(TrayHost::Registered);
    show();
    ASSERT_TRUE(isInPanel());
    tray_.call(QStringLiteral("ContextMenu"), {600, 300});
    ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  }
};

TEST_F(X11StatusItemUnderXwaylandTest, HasTheKeyboardWhileItsOptionsAreOpen) {
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  openOptions();
  EXPECT_TRUE(waitFor([&] { return ui_.session.activeWindow() != other.id(); }));
  ui_.session.run({"xdotool", "key", "Escape"});
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget() == nullptr; }));
  EXPECT_TRUE(waitFor([&] { return ui_.session.activeWindow() == other.id(); }));
}

TEST_F(X11StatusItemUnderXwaylandTest, ClosesItsOptionsWhenTheKeyboardGoesElsewhere) {
  PlainWindow other({200, 200, 300, 200}, Qt::blue);
  openOptions();
  ASSERT_TRUE(waitFor([&] { return ui_.session.activeWindow() != other.id(); }));
  ui_.session.run({"wmctrl", "-i", "-a", std::to_string(other.id())});
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget() == nullptr; }));
}

TEST_F(X11StatusItemTest, SwitchesToTheNeighbourWhenThePanelTellsOfTheWheel) {
  tray_.appear(TrayHost::Registered);
  show();
  ASSERT_TRUE(isInPanel());
  tray_.call(QStringLiteral("Scroll"), {-1, QStringLiteral("vertical")});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 1; }));
  tray_.call(QStringLiteral("Scroll"), {1, QStringLiteral("vertical")});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 0; }));
}

}  // namespace
}  // namespace roomlattice::tests
