#include "platform/x11/statusitem/MenuSession.h"

#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QAction>
#include <QApplication>
#include <QGuiApplication>
#include <QWidgetAction>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::CommandItem;
using platform::Menu;
using platform::ViewItem;
using platform::x11::MenuSession;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

bool isMenuOpen() {
  return QApplication::activePopupWidget() != nullptr;
}

/// A row that notes what happens to it, and closes the menu when it is clicked.
class NotingRow final : public platform::View {
 public:
  explicit NotingRow(std::vector<std::string>& notes, std::string name = {}) : notes_(notes), name_(std::move(name)) {
    setFrame({{}, {220.0, 24.0}});
  }

  platform::ViewContent content() const override {
    return {.elements = {{.frame = {{38.0, 4.0}, {100.0, 16.0}}, .kind = platform::TextElement{.text = name_}}}};
  }
  void buttonClicked() override { note("button " + name_); }
  void mouseEntered() override { note("entered"); }
  void mouseExited() override { note("exited"); }
  void mouseUp(platform::Point) override {
    note("clicked");
    if (host() != nullptr) {
      host()->cancelMenuTracking();
      note("closed");
    }
  }

 private:
  void note(const std::string& what) { notes_.push_back(host() == nullptr ? what + " without a host" : what); }
  void hostingEnded() override { note("ended"); }

  std::vector<std::string>& notes_;
  std::string name_;
};

class MenuSessionTest : public ::testing::Test {
 protected:
  MenuSessionTest() {
    menu_.items.emplace_back(ViewItem{std::make_unique<NotingRow>(notes_)});
    menu_.items.emplace_back(
        CommandItem{"Command", "k", [this] { notes_.emplace_back(isMenuOpen() ? "run too early" : "run"); }});
  }

  void open(QPoint anchor = {599, 99}) {
    menuSession_ = std::make_unique<MenuSession>(menu_, QRect(anchor, QSize(1, 1)), platform::Color{0.0, 0.0, 1.0},
                                                 *owner_, [this] { menuSession_.reset(); });
    ASSERT_TRUE(waitFor(isMenuOpen));
    // No row is under the pointer.
    session_.run({"xdotool", "mousemove", "--sync", "100", "500"});
  }

  /// Cuts the server's screen into two monitors.
  void setMonitors(const std::string& first, const std::string& second) {
    session_.changesMonitors();
    session_.run({"xrandr", "--setmonitor", "first", first, "screen"});
    session_.run({"xrandr", "--setmonitor", "second", second, "none"});
    ASSERT_TRUE(waitFor([] { return QGuiApplication::screens().size() == 2; }));
  }

  /// Puts rows of these names before the command, in place of the one.
  void nameRows(const std::vector<std::string>& names) {
    menu_.items.erase(menu_.items.begin());
    for (std::size_t row = 0; row < names.size(); ++row) {
      menu_.items.insert(menu_.items.begin() + static_cast<std::ptrdiff_t>(row),
                         ViewItem{.view = std::make_unique<NotingRow>(notes_, names[row])});
    }
  }

  void press(const std::vector<std::string>& keys) {
    std::vector<std::string> command{"xdotool", "key"};
    command.insert(command.end(), keys.begin(), keys.end());
    session_.run(command);
  }

  /// The name of the item under the keyboard's cursor.
  static std::string underCursor() {
    const auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const QAction* action = popup == nullptr ? nullptr : popup->activeAction();
    return action == nullptr ? "" : action->text().toStdString();
  }

  /// Presses keys until the menu closes and what it had under way is done.
  void pressUntilClosed(const std::vector<std::string>& keys) {
    press(keys);
    ASSERT_TRUE(waitFor([this] { return !isMenuOpen() && menuSession_ == nullptr; }));
    QCoreApplication::processEvents();
  }

  X11Session session_;
  QtApplication qt_;
  std::unique_ptr<QObject> owner_ = std::make_unique<QObject>();
  std::vector<std::string> notes_;
  Menu menu_;
  std::unique_ptr<MenuSession> menuSession_;
};

TEST_F(MenuSessionTest, LeavesARowBeforeItIsHostedNoLonger) {
  open();
  pressUntilClosed({"Down", "Escape"});
  EXPECT_THAT(notes_, ElementsAre("entered", "exited", "ended without a host"));
}

TEST_F(MenuSessionTest, EndsWhileTheRowThatClosesItIsBeingClicked) {
  open();
  const QRect popup = QApplication::activePopupWidget()->geometry();
  const QPoint row = popup.topLeft() + QPoint(60, 13);
  session_.run({"xdotool", "mousemove", "--sync", std::to_string(row.x()), std::to_string(row.y()), "click", "1"});
  EXPECT_TRUE(waitFor([this] { return menuSession_ == nullptr; }));
  EXPECT_THAT(notes_, ElementsAre("entered", "clicked", "exited", "ended without a host", "closed without a host"));
}

TEST_F(MenuSessionTest, TellsARowOfTheReturnKeyWhenTheMenuHasClosed) {
  open();
  pressUntilClosed({"Down", "Return"});
  EXPECT_THAT(notes_, ElementsAre("entered", "exited", "ended without a host", "clicked without a host"));
}

TEST_F(MenuSessionTest, RunsACommandWhenTheMenuHasGone) {
  open();
  pressUntilClosed({"Up", "Return"});
  EXPECT_TRUE(waitFor([this] { return !notes_.empty() && notes_.back() == "run"; }));
}

TEST_F(MenuSessionTest, RunsACommandByItsShortcut) {
  open();
  pressUntilClosed({"ctrl+k"});
  EXPECT_TRUE(waitFor([this] { return !notes_.empty() && notes_.back() == "run"; }));
}

TEST_F(MenuSessionTest, RunsACommandByAClick) {
  open();
  const QRect popup = QApplication::activePopupWidget()->geometry();
  const QPoint row = popup.bottomLeft() + QPoint(60, -12);
  session_.run({"xdotool", "mousemove", "--sync", std::to_string(row.x()), std::to_string(row.y()), "click", "1"});
  EXPECT_TRUE(waitFor([this] { return !notes_.empty() && notes_.back() == "run"; }));
  EXPECT_EQ(menuSession_, nullptr);
}

TEST_F(MenuSessionTest, PressesTheButtonOfTheRowUnderTheCursorByF2AndStaysOpen) {
  nameRows({"Mail", "Web"});
  open();
  press({"F2", "Down", "Down", "F2"});
  EXPECT_TRUE(waitFor([this] { return !notes_.empty() && notes_.back() == "button Web"; }));
  EXPECT_EQ(std::ranges::count_if(notes_, [](const std::string& note) { return note.starts_with("button"); }), 1);
  EXPECT_TRUE(isMenuOpen());
  pressUntilClosed({"Escape"});
}

TEST_F(MenuSessionTest, ChoosesARowByItsNumber) {
  nameRows({"Mail", "Web", "Code"});
  open();
  pressUntilClosed({"7", "3"});
  EXPECT_EQ(notes_.back(), "clicked without a host");
  EXPECT_EQ(notes_.size(), 4U) << "one row ended, entered by nobody, and clicked";
}

TEST_F(MenuSessionTest, MovesTheCursorToANameByItsFirstLetters) {
  nameRows({"Mail", "Web", "Music"});
  open();
  const auto isUnder = [](const char* name) { return [name] { return underCursor() == name; }; };
  press({"w"});
  EXPECT_TRUE(waitFor(isUnder("Web")));
  press({"m"});
  EXPECT_TRUE(waitFor(isUnder("Music")));
  press({"m"});
  EXPECT_TRUE(waitFor(isUnder("Mail")));
  press({"c"});
  EXPECT_TRUE(waitFor(isUnder("Command")));
  pressUntilClosed({"Escape"});
}

TEST_F(MenuSessionTest, KeepsTheRowUnderTheCursorWhenAnotherOneIsLeft) {
  nameRows({"One", "Two"});
  open();
  press({"Down", "Down"});
  ASSERT_TRUE(waitFor([] { return underCursor() == "Two"; }));
  notes_.clear();
  auto* first = qobject_cast<QWidgetAction*>(QApplication::activePopupWidget()->actions().front());
  QEvent leaving(QEvent::Leave);
  QCoreApplication::sendEvent(first->defaultWidget(), &leaving);
  EXPECT_THAT(notes_, IsEmpty());
}

TEST_F(MenuSessionTest, HasTheClickThatClosesItToItself) {
  PlainWindow below({50, 400, 300, 200}, Qt::green);
  open();
  session_.run({"xdotool", "mousedown", "1"});
  EXPECT_TRUE(waitFor([] { return QApplication::mouseButtons() == Qt::LeftButton; }));
  session_.run({"xdotool", "mouseup", "1"});
  EXPECT_TRUE(waitFor([this] { return menuSession_ == nullptr; }));
  session_.run({"xdotool", "mousedown", "1"});
  EXPECT_TRUE(waitFor([&] { return below.clicks() == 1; }));
  EXPECT_EQ(below.releases(), 0);
  session_.run({"xdotool", "mouseup", "1"});
  EXPECT_TRUE(waitFor([&] { return below.releases() == 1; }));
}

TEST_F(MenuSessionTest, OpensOnTheScreenOfItsAnchorAtTheLeft) {
  setMonitors("640/150x800/200+0+0", "640/150x800/200+640+0");
  open({650, 99});
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget()->geometry().topLeft() == QPoint(640, 100); }));
}

TEST_F(MenuSessionTest, OpensOnTheScreenOfItsAnchorAtTheTop) {
  setMonitors("1280/300x400/100+0+0", "1280/300x400/100+0+400");
  nameRows(std::vector<std::string>(12, "Mail"));
  open({599, 620});
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget()->geometry().top() == 400; }));
}

TEST_F(MenuSessionTest, RunsNoCommandForAnOwnerThatHasGone) {
  open();
  QAction* command = QApplication::activePopupWidget()->actions().back();
  command->trigger();
  owner_.reset();
  pressUntilClosed({"Escape"});
  EXPECT_THAT(notes_, ElementsAre("ended without a host"));
}

TEST_F(MenuSessionTest, ClosesTheMenuWithItself) {
  open();
  menuSession_.reset();
  EXPECT_FALSE(isMenuOpen());
  EXPECT_THAT(notes_, ElementsAre("ended without a host"));
}

}  // namespace
}  // namespace roomlattice::tests
