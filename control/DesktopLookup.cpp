#include "control/DesktopLookup.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace roomlattice {
namespace {

using platform::CommandError;
using platform::CommandErrorKind;
using platform::DesktopState;

using Indices = std::vector<std::size_t>;
using Answers = bool (*)(const DesktopState& desktop, const std::string& text);

/// Only the letters A–Z: those are the same in every language's rules but a few.
std::string lowered(std::string text) {
  std::ranges::transform(text, text.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  });
  return text;
}

bool hasNumber(const DesktopState& desktop, const std::string& text) {
  return desktop.number && std::to_string(*desktop.number) == text;
}
bool hasUUID(const DesktopState& desktop, const std::string& text) {
  return desktop.uuid == text;
}
bool hasName(const DesktopState& desktop, const std::string& text) {
  return desktop.name == text;
}
bool hasNameInAnyCase(const DesktopState& desktop, const std::string& text) {
  return lowered(desktop.name) == lowered(text);
}
bool beginsWith(const DesktopState& desktop, const std::string& text) {
  return !text.empty() && desktop.name.starts_with(text);
}
bool beginsWithInAnyCase(const DesktopState& desktop, const std::string& text) {
  return !text.empty() && lowered(desktop.name).starts_with(lowered(text));
}

constexpr std::array<Answers, 6> waysToMeanIt{hasNumber,        hasUUID,    hasName,
                                              hasNameInAnyCase, beginsWith, beginsWithInAnyCase};

Indices regularOnesThat(Answers answer, const std::string& text, const std::vector<DesktopState>& desktops) {
  Indices found;
  for (std::size_t index = 0; index < desktops.size(); ++index) {
    if (desktops[index].number && answer(desktops[index], text)) {
      found.push_back(index);
    }
  }
  return found;
}

std::string listed(const std::vector<DesktopState>& desktops) {
  std::string text;
  for (const DesktopState& desktop : desktops) {
    text += (text.empty() ? " (" : ", ") + std::to_string(desktop.number.value_or(0)) + " " + desktop.name;
  }
  return text.empty() ? "" : text + ")";
}

CommandError refusal(CommandErrorKind kind, std::string message, std::vector<DesktopState> candidates) {
  message += listed(candidates);
  return {kind, std::move(message), std::move(candidates)};
}

CommandError ambiguous(const std::string& text, const Indices& found, const std::vector<DesktopState>& desktops) {
  std::vector<DesktopState> candidates;
  for (const std::size_t index : found) {
    candidates.push_back(desktops[index]);
  }
  return refusal(CommandErrorKind::AmbiguousDesktop, "'" + text + "' fits several desktops", std::move(candidates));
}

CommandError notFound(const std::string& text, const std::vector<DesktopState>& desktops) {
  std::vector<DesktopState> candidates;
  bool isFullScreen = false;
  for (const DesktopState& desktop : desktops) {
    if (desktop.number) {
      candidates.push_back(desktop);
    } else {
      isFullScreen = isFullScreen || hasUUID(desktop, text) || hasName(desktop, text);
    }
  }
  return isFullScreen
             ? refusal(CommandErrorKind::FullScreenDesktop, "'" + text + "' is a full-screen space",
                       std::move(candidates))
             : refusal(CommandErrorKind::NoSuchDesktop, "no desktop is called '" + text + "'", std::move(candidates));
}

}  // namespace

std::variant<std::size_t, CommandError> findDesktop(const std::string& text,
                                                    const std::vector<DesktopState>& desktops) {
  for (const Answers answer : waysToMeanIt) {
    const Indices found = regularOnesThat(answer, text, desktops);
    if (found.size() == 1) {
      return found.front();
    }
    if (!found.empty()) {
      return ambiguous(text, found, desktops);
    }
  }
  return notFound(text, desktops);
}

}  // namespace roomlattice
