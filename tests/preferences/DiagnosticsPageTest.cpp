#include "tests/preferences/LogCommand.h"
#include "tests/preferences/PreferencesFixture.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::FontFamily;
using platform::FontWeight;
using platform::LabelControl;
using platform::PushButtonControl;
using platform::Rect;
using platform::SelectableTextControl;
using platform::SystemColor;

const std::string copyLog = "Copy Diagnostic Log to Clipboard";
const std::string copyCommand = "Copy Command";
const std::string gathering = "Gathering log\u2026";
const std::string commandCopied = "Command copied to clipboard.";

class DiagnosticsPageTest : public PreferencesFixture {
 protected:
  template <class Control>
  const Control& at(std::size_t index) {
    return std::get<Control>(page(3).controls.at(index).control);
  }

  std::string status() { return at<LabelControl>(3).text; }

  bool canCopyLog() { return window().isEnabled(reference(copyLog)); }

  void toolPrints(const std::string& output, platform::Duration duration = {}) {
    desktop.childProcesses().install(logTool, output, duration);
  }

  /// Runs all that is left to happen now.
  void settle() { desktop.advance(0ms); }
};

TEST_F(DiagnosticsPageTest, IsLaidOut) {
  openPreferences();
  std::vector<Rect> frames;
  for (const platform::PlacedControl& placed : page(3).controls) {
    frames.push_back(placed.frame);
  }
  EXPECT_EQ(frames, (std::vector<Rect>{{{20.0, 359.75}, {138.9375, 16.25}},
                                       {{20.0, 300.75}, {420.0, 45.0}},
                                       {{20.0, 262.5}, {240.0, 24.25}},
                                       {{20.0, 234.75}, {440.0, 13.75}},
                                       {{20.0, 205.75}, {270.0, 15.0}},
                                       {{20.0, 172.0}, {440.0, 19.75}},
                                       {{20.0, 133.75}, {110.0, 24.25}}}));
}

TEST_F(DiagnosticsPageTest, HasItsTextsAndFonts) {
  openPreferences();
  EXPECT_EQ(at<LabelControl>(0).text, "Reporting a problem");
  EXPECT_EQ(at<LabelControl>(0).font, (platform::Font{.size = 13.0, .weight = FontWeight::Semibold}));
  EXPECT_EQ(at<LabelControl>(0).color, SystemColor::Label);
  EXPECT_EQ(at<LabelControl>(1).text,
            "If desktop labels misbehave, send a diagnostic log so the issue can be tracked down. Reproduce the "
            "problem first, then click the button below and paste the result into your report.");
  EXPECT_EQ(at<LabelControl>(1).wrapWidth, 440.0);
  EXPECT_EQ(at<PushButtonControl>(2).title, "Copy Diagnostic Log to Clipboard");
  EXPECT_EQ(at<LabelControl>(3).text, "");
  EXPECT_EQ(at<LabelControl>(4).text, "Or run this in Terminal and paste the output:");
  EXPECT_EQ(at<SelectableTextControl>(5).text, logCommand);
  EXPECT_EQ(at<SelectableTextControl>(5).font,
            (platform::Font{.family = FontFamily::MonospacedSystem, .size = 11.0, .weight = FontWeight::Regular}));
  EXPECT_EQ(at<PushButtonControl>(6).title, "Copy Command");
}

TEST_F(DiagnosticsPageTest, ShowsWhatIsSecondaryAsSecondary) {
  openPreferences();
  struct Case {
    std::size_t control;
    double size;
  };
  for (const auto& [control, size] : {Case{1, 12.0}, Case{3, 11.0}, Case{4, 12.0}}) {
    EXPECT_EQ(at<LabelControl>(control).font, platform::Font{.size = size}) << control;
    EXPECT_EQ(at<LabelControl>(control).color, SystemColor::SecondaryLabel) << control;
  }
}

TEST_F(DiagnosticsPageTest, CopiesTheLog) {
  toolPrints("one\ntwo\nthree\n");
  openPreferences();
  user.pushes(copyLog);
  settle();
  EXPECT_EQ(desktop.pasteboard(), "one\ntwo\nthree\n");
  EXPECT_EQ(status(), "Copied 3 log lines to clipboard.");
}

TEST_F(DiagnosticsPageTest, CopiesTheProgramsOwnLines) {
  openPreferences();
  platform().system().log("[Roomlattice] one line");
  user.pushes(copyLog);
  settle();
  EXPECT_EQ(desktop.pasteboard(), "0.000 Roomlattice: [Roomlattice] one line\n");
  EXPECT_EQ(status(), "Copied 1 log line to clipboard.");
}

TEST_F(DiagnosticsPageTest, CountsWhatItCopied) {
  struct Case {
    const char* output;
    const char* status;
  };
  openPreferences();
  for (const auto& [output, expected] :
       {Case{"one\n", "Copied 1 log line to clipboard."},
        Case{"one\n\ntwo\n\nthree", "Copied 3 log lines to clipboard."}, Case{"\n", "Copied 0 log lines to clipboard."},
        Case{"", "Copied 1 log line to clipboard."}, Case{"\xFF\n\xFF\n", "Copied 1 log line to clipboard."}}) {
    toolPrints(output);
    user.pushes(copyLog);
    settle();
    EXPECT_EQ(status(), expected);
  }
}

TEST_F(DiagnosticsPageTest, CopiesWhyThereIsNoLog) {
  desktop.childProcesses().remove(logTool);
  openPreferences();
  user.pushes(copyLog);
  settle();
  EXPECT_TRUE(desktop.pasteboard().value().starts_with("Failed to run log command: "));
  EXPECT_TRUE(desktop.pasteboard().value().ends_with(logCommand));
  EXPECT_EQ(status(), "Copied 3 log lines to clipboard.");
  EXPECT_TRUE(canCopyLog());
}

TEST_F(DiagnosticsPageTest, CopiesTheCommand) {
  openPreferences();
  user.pushes(copyCommand);
  EXPECT_EQ(desktop.pasteboard(), logCommand);
  EXPECT_EQ(status(), commandCopied);
  EXPECT_TRUE(window().isEnabled(reference(copyCommand)));
  EXPECT_TRUE(desktop.childProcesses().launches().empty());
}

TEST_F(DiagnosticsPageTest, DisablesTheButtonFromTheClickToTheResult) {
  toolPrints("one\n", 3s);
  openPreferences();
  user.pushes(copyLog);
  EXPECT_FALSE(canCopyLog());
  EXPECT_EQ(status(), gathering);
  desktop.advance(3s - 1ms);
  EXPECT_FALSE(canCopyLog());
  EXPECT_EQ(status(), gathering);
  EXPECT_EQ(desktop.pasteboard(), std::nullopt);
  desktop.advance(1ms);
  EXPECT_TRUE(canCopyLog());
  EXPECT_EQ(desktop.pasteboard(), "one\n");
}

TEST_F(DiagnosticsPageTest, GathersOnceAtATime) {
  toolPrints("one\n", 3s);
  openPreferences();
  user.pushes(copyLog);
  user.pushes(copyLog);
  desktop.advance(1s);
  user.pushes(copyLog);
  desktop.advance(10s);
  EXPECT_EQ(desktop.childProcesses().launches().size(), 1U);
  user.pushes(copyLog);
  desktop.advance(10s);
  EXPECT_EQ(desktop.childProcesses().launches().size(), 2U);
}

TEST_F(DiagnosticsPageTest, CopiesTheCommandWhileItGathersAndTheLogAfterwards) {
  toolPrints("one\ntwo\n", 3s);
  openPreferences();
  user.pushes(copyLog);
  desktop.advance(1s);
  user.pushes(copyCommand);
  EXPECT_EQ(desktop.pasteboard(), logCommand);
  EXPECT_EQ(status(), commandCopied);
  EXPECT_FALSE(canCopyLog());
  desktop.advance(2s);
  EXPECT_EQ(desktop.pasteboard(), "one\ntwo\n");
  EXPECT_EQ(status(), "Copied 2 log lines to clipboard.");
}

TEST_F(DiagnosticsPageTest, LeavesTheMainQueueAloneWhileItGathers) {
  toolPrints("one\n", 60s);
  openPreferences();
  user.pushes(copyLog);
  int turns = 0;
  const platform::Registration timer = platform().dispatcher().repeat(1s, 1s, [&turns] { ++turns; });
  desktop.advance(30s);
  EXPECT_EQ(turns, 30);
  EXPECT_EQ(status(), gathering);
}

TEST_F(DiagnosticsPageTest, WaitsForAToolThatDoesNotEndUntilItIsKilled) {
  toolPrints("one\n", 1000h);
  openPreferences();
  user.pushes(copyLog);
  desktop.advance(1000h - 1ms);
  EXPECT_FALSE(canCopyLog());
  EXPECT_EQ(status(), gathering);
  desktop.advance(1ms);
  EXPECT_TRUE(canCopyLog());
  EXPECT_EQ(desktop.pasteboard(), "one\n");
}

TEST_F(DiagnosticsPageTest, CopiesAHugeLog) {
  constexpr std::size_t lines = 1'000'000;
  constexpr std::size_t bytesPerLine = 4;
  std::string output;
  output.reserve(lines * bytesPerLine);
  for (std::size_t line = 0; line < lines; ++line) {
    output.append(bytesPerLine - 1, 'x').push_back('\n');
  }
  toolPrints(output);
  openPreferences();
  user.pushes(copyLog);
  settle();
  EXPECT_TRUE(desktop.pasteboard() == output);
  EXPECT_EQ(status(), "Copied 1000000 log lines to clipboard.");
}

TEST_F(DiagnosticsPageTest, GathersWhileTheWindowIsClosed) {
  toolPrints("one\n", 3s);
  openPreferences();
  user.pushes(copyLog);
  user.closesWindow();
  desktop.advance(3s);
  EXPECT_EQ(desktop.pasteboard(), "one\n");
  EXPECT_TRUE(canCopyLog());
  EXPECT_EQ(status(), "Copied 1 log line to clipboard.");
}

TEST_F(DiagnosticsPageTest, LeavesTheClipboardAloneWhenTheProgramHasQuit) {
  toolPrints("one\n", 3s);
  openPreferences();
  user.pushes(copyLog);
  desktop.advance(1s);
  relaunchPreferences();
  desktop.advance(10s);
  EXPECT_EQ(desktop.pasteboard(), std::nullopt);
  EXPECT_EQ(status(), "");
  EXPECT_TRUE(canCopyLog());
}

}  // namespace
}  // namespace roomlattice::tests
