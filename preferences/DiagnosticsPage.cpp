#include "preferences/DiagnosticsPage.h"

#include "preferences/DiagnosticLog.h"
#include "preferences/PageBuilder.h"

#include <string>
#include <utility>

namespace roomlattice {
namespace {

constexpr double diagnosticsSpacing = 14.0;
constexpr double textWidth = 440.0;

constexpr const char* explanation =
    "If desktop labels misbehave, send a diagnostic log so the issue can be tracked down. Reproduce the problem first, "
    "then click the button below and paste the result into your report.";

platform::LabelControl secondaryLabel(const char* text, double size) {
  return {.text = text, .font = {.size = size}, .color = platform::SystemColor::SecondaryLabel};
}

std::string copiedStatus(std::size_t lines) {
  return "Copied " + std::to_string(lines) + " log line" + (lines == 1 ? "" : "s") + " to clipboard.";
}

}  // namespace

platform::TabPage DiagnosticsPage::make() {
  PageBuilder page(platform_.userInterface(), diagnosticsSpacing);
  page.add(platform::LabelControl{.text = "Reporting a problem",
                                  .font = {.size = 13.0, .weight = platform::FontWeight::Semibold}});
  platform::LabelControl explanationLabel = secondaryLabel(explanation, 12.0);
  explanationLabel.wrapWidth = textWidth;
  page.add(std::move(explanationLabel));
  copyLogButton_ = {index_, page.add(platform::PushButtonControl{.title = "Copy Diagnostic Log to Clipboard",
                                                                 .action = [this] { copyDiagnosticLog(); }})};
  // Its texts come later, and find the page as it is.
  statusLabel_ = {index_, page.add(secondaryLabel("", 11.0), textWidth)};
  page.add(secondaryLabel("Or run this in Terminal and paste the output:", 12.0));
  page.add(platform::SelectableTextControl{.text = platform_.system().recentLog().command,
                                           .font = {.family = platform::FontFamily::MonospacedSystem, .size = 11.0}},
           textWidth, "Log command");
  page.add(platform::PushButtonControl{.title = "Copy Command", .action = [this] { copyLogCommand(); }});
  return page.build("diagnostics", "Diagnostics");
}

void DiagnosticsPage::copyDiagnosticLog() {
  setStatus("Gathering log\u2026");
  window_->setEnabled(copyLogButton_, false);
  auto finish = lifetime_.guard([this](const std::string& text) { showCopiedLog(text); });
  platform_.dispatcher().background(
      [&platform = platform_, finish = std::move(finish), query = platform_.system().recentLog()] {
        platform.dispatcher().async(
            [finish, text = gatherDiagnosticLog(platform.system(), query)]() mutable { finish(text); });
      });
}

void DiagnosticsPage::showCopiedLog(const std::string& text) {
  platform_.system().setPasteboardString(text);
  setStatus(copiedStatus(countLogLines(text)));
  window_->setEnabled(copyLogButton_, true);
}

void DiagnosticsPage::copyLogCommand() {
  platform_.system().setPasteboardString(platform_.system().recentLog().command);
  setStatus("Command copied to clipboard.");
}

void DiagnosticsPage::setStatus(const std::string& text) {
  window_->setText(statusLabel_, text);
}

}  // namespace roomlattice
