#include "preferences/DiagnosticLog.h"

#include "support/Text.h"

#include <utility>
#include <variant>

namespace roomlattice {
namespace {

constexpr const char* emptyOutputText = "(no log output \u2014 make sure you reproduced the issue recently)";

}  // namespace

std::string gatherDiagnosticLog(platform::System& system, const platform::LogQuery& query) {
  auto outcome = system.run(query.executable, query.arguments);
  if (const auto* error = std::get_if<platform::LaunchError>(&outcome)) {
    return "Failed to run log command: " + error->localizedDescription + "\n\nRun this in Terminal instead:\n" +
           query.command;
  }
  std::string& bytes = std::get<platform::ProcessOutput>(outcome).bytes;
  return bytes.empty() || !isUtf8(bytes) ? emptyOutputText : std::move(bytes);
}

std::size_t countLogLines(const std::string& text) {
  std::size_t count = 0;
  char previous = '\n';
  for (const char character : text) {
    if (previous == '\n' && character != '\n') {
      ++count;
    }
    previous = character;
  }
  return count;
}

}  // namespace roomlattice
