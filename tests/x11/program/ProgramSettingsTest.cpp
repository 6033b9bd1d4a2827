#include "tests/linux/session/TextFile.h"
#include "tests/x11/session/ProgramSession.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

class ProgramSettingsTest : public ::testing::Test {
 protected:
  QRect item() {
    const std::optional<WindowProbe> item = user_.windows().statusItem();
    return item ? item->geometry().value_or(QRect()) : QRect();
  }

  /// As an editor does that writes the file in its place.
  static void edit(const std::string& what, const std::string& by) {
    const std::string text = textOf(Program::settingsFile());
    ASSERT_NE(text.find(what), std::string::npos) << text;
    writeText(Program::settingsFile(), replaceAll(text, what, by));
  }

  ProgramSession user_{{.desktops = 2}};
};

TEST_F(ProgramSettingsTest, TakeEffectAtOnceWhenTheirFileIsEdited) {
  ASSERT_TRUE(user_.startAndTour(R"({"MenuBarWidthMode": "fitToTitle", "StatusItem.Edge": "top"})"));
  ASSERT_NE(item().width(), 140);
  edit("fitToTitle", "maxTitleLength");
  EXPECT_TRUE(waitFor([this] { return item().width() == 140; }));
  edit("\"top\"", "\"bottom\"");
  EXPECT_TRUE(waitFor([this] { return item().top() > 700; }));
}

}  // namespace
}  // namespace roomlattice::tests
