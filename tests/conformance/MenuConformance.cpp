#include "tests/conformance/ConformanceTest.h"

#include <string>
#include <utility>

namespace roomlattice::tests {
namespace {

using platform::EditCommand;
using platform::KeyDisposition;
using platform::Menu;
using platform::ViewItem;

/// What rows have been through.
struct Record {
  int endings = 0;
  int commits = 0;
  int keys = 0;
  int goneWhileHosted = 0;
};

/// A row with a text field.
class FieldRow final : public platform::View {
 public:
  explicit FieldRow(Record& record) : record_(record) { setFrame({{}, {220.0, 24.0}}); }
  ~FieldRow() override { record_.goneWhileHosted += host() == nullptr ? 0 : 1; }

  platform::ViewContent content() const override {
    return {.elements = {
                {.frame = {{38.0, 2.0}, {172.0, 20.0}}, .hidden = !isEditing_, .kind = platform::TextFieldElement{}}}};
  }

  platform::CommandDisposition doCommand(EditCommand command) override {
    record_.commits += command == EditCommand::InsertNewline ? 1 : 0;
    return platform::CommandDisposition::Handled;
  }

  /// Shows the field and gives it the keyboard, and hears of keys before it.
  void edit(platform::Events& events) {
    showField(true);
    host()->textField()->setText("Mail");
    host()->textField()->focusAndSelectAll();
    keys_ = events.monitorLocalKeyDown([this](const platform::KeyEvent&) {
      ++record_.keys;
      return KeyDisposition::PassOn;
    });
  }

 private:
  void hostingEnded() override {
    ++record_.endings;
    keys_.cancel();
    showField(false);
  }

  void showField(bool shown) {
    isEditing_ = shown;
    contentChanged();
  }

  Record& record_;
  bool isEditing_ = false;
  platform::Registration keys_;
};

/// A status item with a menu of one row, which lasts unless a test makes another.
class MenuConformance : public ConformanceTest {
 protected:
  void SetUp() override {
    ConformanceTest::SetUp();
    if (IsSkipped()) {
      return;
    }
    putRow();
    menu_.needsUpdate = [this](Menu&) { ++updates_; };
    item_ = platform().userInterface().createStatusItem(platform::FixedLength{140.0});
    item_->setMenu(&menu_);
  }

  void putRow() {
    menu_.items.clear();
    menu_.items.emplace_back(ViewItem{std::make_unique<FieldRow>(record_)});
  }

  FieldRow& row() { return static_cast<FieldRow&>(*std::get<ViewItem>(menu_.items.front()).view); }

  void open() {
    backend().openMenu();
    ASSERT_TRUE(runUntil([this] { return backend().isMenuOpen(); }));
  }

  void close() {
    backend().closeMenu();
    expectClosed();
  }

  void expectClosed() {
    EXPECT_TRUE(runUntil([this] { return !backend().isMenuOpen(); }));
  }

  Record record_;
  Menu menu_;
  int updates_ = 0;
  std::unique_ptr<platform::StatusItem> item_;
};

TEST_F(MenuConformance, IsBroughtUpToDateBeforeEachOpening) {
  EXPECT_EQ(updates_, 0);
  open();
  EXPECT_EQ(updates_, 1);
  close();
  EXPECT_EQ(updates_, 1);
  open();
  EXPECT_EQ(updates_, 2);
}

TEST_F(MenuConformance, OpensForTheProgramAndStaysOpen) {
  item_->openMenu();
  ASSERT_TRUE(runUntil([this] { return backend().isMenuOpen(); }));
  item_->openMenu();
  EXPECT_EQ(updates_, 1);
  EXPECT_TRUE(backend().isMenuOpen());
  close();
  item_->setMenu(nullptr);
  item_->openMenu();
  EXPECT_EQ(updates_, 1);
}

TEST_F(MenuConformance, HostsARowExactlyWhileItIsOpen) {
  EXPECT_EQ(row().host(), nullptr);
  for (int opening = 1; opening <= 2; ++opening) {
    open();
    EXPECT_NE(row().host(), nullptr);
    EXPECT_EQ(record_.endings, opening - 1);
    close();
    EXPECT_EQ(row().host(), nullptr);
    EXPECT_EQ(record_.endings, opening);
  }
}

TEST_F(MenuConformance, ShowsTheRowsOfItsUpdateAndNoneOfThoseBefore) {
  menu_.needsUpdate = [this](Menu&) { putRow(); };
  open();
  EXPECT_NE(row().host(), nullptr);
  close();
  open();
  EXPECT_NE(row().host(), nullptr);
  EXPECT_EQ(record_.endings, 1);
  EXPECT_EQ(record_.goneWhileHosted, 0);
}

TEST_F(MenuConformance, ClosesForARow) {
  open();
  row().host()->cancelMenuTracking();
  expectClosed();
  EXPECT_EQ(row().host(), nullptr);
  EXPECT_EQ(record_.endings, 1);
}

TEST_F(MenuConformance, ClosesWithItsItem) {
  open();
  item_.reset();
  expectClosed();
  EXPECT_EQ(row().host(), nullptr);
  EXPECT_EQ(record_.endings, 1);
}

TEST_F(MenuConformance, ClosesWhenItsItemGetsNoneInItsPlace) {
  open();
  item_->setMenu(nullptr);
  expectClosed();
  EXPECT_EQ(row().host(), nullptr);
  EXPECT_EQ(record_.endings, 1);
}

TEST_F(MenuConformance, LetsNoEditSurviveItsClosing) {
  open();
  row().edit(platform().events());
  backend().pressReturn();
  EXPECT_EQ(record_.commits, 1);
  EXPECT_EQ(record_.keys, 1);
  close();
  open();
  backend().pressReturn();
  EXPECT_EQ(record_.commits, 1);
  EXPECT_EQ(record_.keys, 1);
}

TEST_F(MenuConformance, LeavesAMonitorThatARowEndedWithoutKeys) {
  // It has the keyboard when the menu is closed.
  const auto window = platform().userInterface().createTabbedWindow({.title = "Window", .contentSize = {300.0, 200.0}});
  window->show();
  backend().waitForKeyboard();
  open();
  row().edit(platform().events());
  backend().pressReturn();
  EXPECT_EQ(record_.keys, 1);
  close();
  backend().pressReturn();
  EXPECT_EQ(record_.keys, 1);
}

}  // namespace
}  // namespace roomlattice::tests
