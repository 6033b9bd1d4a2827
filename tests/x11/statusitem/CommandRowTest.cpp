#include "platform/x11/statusitem/CommandRow.h"

#include "platform/x11/drawing/Text.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <memory>

namespace roomlattice::tests {
namespace {

using platform::TextElement;
using platform::x11::CommandRow;

class CommandRowTest : public ::testing::Test {
 protected:
  static const TextElement& title(const platform::ViewContent& content) {
    return std::get<TextElement>(content.elements.front().kind);
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  CommandRow::Style style_{.height = 24.0, .textX = 38.0, .highlight = {0.0, 0.0, 1.0}};
};

TEST_F(CommandRowTest, BeginsWhereItIsToldAndHasTheSizeOfNames) {
  const CommandRow row("Command", "Ctrl+K", style_, [] {});
  const platform::ViewContent content = row.content();
  EXPECT_EQ(content.elements.front().frame.minX(), 38.0);
  EXPECT_EQ(title(content).text, "Command");
  EXPECT_EQ(title(content).font.size, platform::x11::systemFontSize());
  EXPECT_EQ(row.frame().size.height, 24.0);
}

TEST_F(CommandRowTest, KeepsItsShortcutAtItsEndHoweverWideItIs) {
  CommandRow row("Command", "Ctrl+K", style_, [] {});
  const double narrow = row.frame().size.width - row.content().elements.back().frame.maxX();
  row.setFrame({{}, {400.0, 24.0}});
  EXPECT_EQ(400.0 - row.content().elements.back().frame.maxX(), narrow);
}

TEST_F(CommandRowTest, IsHighlightedWhileThePointerIsOnIt) {
  CommandRow row("Command", "", style_, [] {});
  row.mouseEntered();
  EXPECT_EQ(row.content().background, style_.highlight);
  row.mouseExited();
  EXPECT_EQ(row.content().background, std::nullopt);
}

TEST_F(CommandRowTest, MayEndWhileItRuns) {
  std::unique_ptr<CommandRow> row;
  int runs = 0;
  row = std::make_unique<CommandRow>("Command", "", style_, [&] {
    ++runs;
    row.reset();
    ++runs;
  });
  row->mouseUp({});
  EXPECT_EQ(runs, 2);
}

}  // namespace
}  // namespace roomlattice::tests
