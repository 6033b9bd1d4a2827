#pragma once

#include "platform/Platform.h"
#include "support/Lifetime.h"

#include <cstddef>
#include <string>

namespace roomlattice {

/// The page that copies the program's recent log lines to the clipboard, and what its buttons do in the window.
class DiagnosticsPage {
 public:
  /// `index` is the page's place in the window.
  DiagnosticsPage(platform::Platform& platform, std::size_t index) : platform_(platform), index_(index) {}

  /// To be called once; this object outlives the page.
  platform::TabPage make();

  /// The window that the page has become part of, which outlives this object.
  void setWindow(platform::TabbedWindow& window) { window_ = &window; }

 private:
  void copyDiagnosticLog();
  void copyLogCommand();
  void showCopiedLog(const std::string& text);
  void setStatus(const std::string& text);

  platform::Platform& platform_;
  std::size_t index_;
  platform::TabbedWindow* window_ = nullptr;
  platform::ControlReference statusLabel_;
  platform::ControlReference copyLogButton_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
