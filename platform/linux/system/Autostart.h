#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace roomlattice::platform::linux {

/// Tells the program that it is started with the session: it waits for what the session starts beside it.
inline constexpr const char* atLoginOption = "--at-login";

/// Whether the program starts with the user's session: an entry in the folder where sessions look for what to start
/// (freedesktop.org, Desktop Application Autostart). Others may change it too: it is read afresh.
class Autostart {
 public:
  enum class State { Off, On };

  /// The user's own entry; nothing for a user without a home.
  static std::optional<std::filesystem::path> standardPath();

  explicit Autostart(std::filesystem::path entry) : entry_(std::move(entry)) {}

  /// Off also where another program has switched the entry off without removing it.
  State state() const;

  /// Writes the entry, for the program file at `executable`, or removes it. False when that is not possible.
  bool set(State state, const std::filesystem::path& executable) const;

 private:
  std::filesystem::path entry_;
};

/// The text of an entry that starts the program at `executable`.
std::string autostartEntry(const std::filesystem::path& executable);

}  // namespace roomlattice::platform::linux
