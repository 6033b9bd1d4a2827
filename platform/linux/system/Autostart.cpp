#include "platform/linux/system/Autostart.h"

#include "platform/linux/storage/UserFolders.h"

#include <fstream>
#include <string_view>
#include <system_error>

namespace roomlattice::platform::linux {
namespace {

namespace fs = std::filesystem;

std::string withBackslashes(std::string_view text, std::string_view special) {
  std::string result;
  for (const char character : text) {
    if (special.find(character) != std::string_view::npos) {
      result += '\\';
    }
    result += character;
  }
  return result;
}

/// A value of a desktop entry.
std::string asValue(const std::string& text) {
  return withBackslashes(text, "\\");
}

/// An argument of an Exec key: quoted, with its percent signs doubled; then it is a value like any other.
std::string asArgument(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : withBackslashes(text, "\"`$\\")) {
    quoted += character == '%' ? "%%" : std::string(1, character);
  }
  return asValue(quoted + "\"");
}

bool saysOff(std::string line) {
  // There may be some around the equals sign.
  std::erase(line, ' ');
  return line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false";
}

bool writeWhole(const fs::path& path, const std::string& text) {
  const fs::path made = path.string() + ".new";
  std::ofstream file(made, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  std::error_code error;
  if (file) {
    fs::rename(made, path, error);
  }
  const bool isDone = file && !error;
  if (!isDone) {
    fs::remove(made, error);
  }
  return isDone;
}

}  // namespace

std::optional<fs::path> Autostart::standardPath() {
  const std::optional<fs::path> own = configurationFolder();
  return own ? std::optional(own->parent_path() / "autostart" / "roomlattice.desktop") : std::nullopt;
}

Autostart::State Autostart::state() const {
  std::ifstream file(entry_);
  if (!file) {
    return State::Off;
  }
  for (std::string line; std::getline(file, line);) {
    if (saysOff(line)) {
      return State::Off;
    }
  }
  return State::On;
}

bool Autostart::set(State state, const fs::path& executable) const {
  if (state == State::On) {
    makeFolder(entry_.parent_path());
    return writeWhole(entry_, autostartEntry(executable));
  }
  std::error_code error;
  fs::remove(entry_, error);
  return !error;
}

std::string autostartEntry(const fs::path& executable) {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Name=Roomlattice\n"
         "Comment=Tell virtual desktops apart and move between them\n"
         "Icon=roomlattice\n"
         "TryExec=" +
         asValue(executable.string()) + "\nExec=" + asArgument(executable.string()) + " " + atLoginOption +
         "\nTerminal=false\n"
         "StartupNotify=false\n";
}

}  // namespace roomlattice::platform::linux
