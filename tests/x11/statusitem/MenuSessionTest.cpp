#include "platform/x11/statusitem/MenuSession.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QAction>
#include <QApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::CommandItem;
using platform::Menu;
using platform::ViewItem;
using platform::x11::MenuSession;
using ::testing::ElementsAre;

bool isMenuOpen() {
  return QApplication::activePopupWidget() != nullptr;
}

/// A row that notes what happens to it, and closes the menu when it is clicked.
class NotingRow final : public platform::View {
 public:
  explicit NotingRow(std::vector<std::string>& notes) : notes_(notes) { setFrame({{}, {220.0, 24.0}}); }

  platform::ViewContent content() const override { return {}; }
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
};

class MenuSessionTest : public ::testing::Test {
 protected:
  MenuSessionTest() {
    menu_.items.emplace_back(ViewItem{std::make_unique<NotingRow>(notes_)});
    menu_.items.emplace_back(
        CommandItem{"Command", "k", [this] { notes_.emplace_back(isMenuOpen() ? "run too early" : "run"); }});
  }

  void open() {
    menuSession_ =
        std::make_unique<MenuSession>(menu_, QRect(599, 99, 1, 1), *owner_, [this] { menuSession_.reset(); });
    ASSERT_TRUE(waitFor(isMenuOpen));
    // No row is under the pointer.
    session_.run({"xdotool", "mousemove", "--sync", "100", "500"});
  }

  /// Presses keys until the menu closes and what it had under way is done.
  void pressUntilClosed(const std::vector<std::string>& keys) {
    std::vector<std::string> command{"xdotool", "key"};
    command.insert(command.end(), keys.begin(), keys.end());
    session_.run(command);
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
