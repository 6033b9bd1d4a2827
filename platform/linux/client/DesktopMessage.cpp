#include "platform/linux/client/DesktopMessage.h"

#include "platform/linux/control/ColorText.h"

#include <string>
#include <string_view>

namespace roomlattice::platform::linux {
namespace {

std::optional<std::string> readText(sd_bus_message* message) {
  const char* text = nullptr;
  return sd_bus_message_read(message, "v", "s", &text) > 0 ? std::optional<std::string>(text) : std::nullopt;
}

/// Takes the variant that follows `key`.
void readEntry(sd_bus_message* message, std::string_view key, DesktopState& desktop) {
  char type = 0;
  const char* contents = nullptr;
  if (sd_bus_message_peek_type(message, &type, &contents) <= 0) {
    return;
  }
  const std::string_view kind = contents;
  if (key == "number" && kind == "u") {
    unsigned number = 0;
    sd_bus_message_read(message, "v", "u", &number);
    desktop.number = static_cast<int>(number);
  } else if (key == "active" && kind == "b") {
    int active = 0;
    sd_bus_message_read(message, "v", "b", &active);
    desktop.isActive = active != 0;
  } else if (kind != "s") {
    sd_bus_message_skip(message, "v");
  } else {
    const std::string text = readText(message).value_or("");
    if (key == "name") {
      desktop.name = text;
    } else if (key == "uuid") {
      desktop.uuid = text;
    } else if (key == "display") {
      desktop.display = text;
    } else if (key == "color") {
      desktop.color = colorFrom(text).value_or(Color::black());
    }
  }
}

}  // namespace

std::optional<DesktopState> readDesktop(sd_bus_message* message) {
  if (sd_bus_message_enter_container(message, 'a', "{sv}") <= 0) {
    return std::nullopt;
  }
  DesktopState desktop;
  while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
    const char* key = nullptr;
    sd_bus_message_read_basic(message, 's', &key);
    readEntry(message, key, desktop);
    sd_bus_message_exit_container(message);
  }
  sd_bus_message_exit_container(message);
  return desktop;
}

std::vector<DesktopState> readDesktops(sd_bus_message* message) {
  std::vector<DesktopState> desktops;
  if (sd_bus_message_enter_container(message, 'a', "a{sv}") > 0) {
    while (const auto desktop = readDesktop(message)) {
      desktops.push_back(*desktop);
    }
    sd_bus_message_exit_container(message);
  }
  return desktops;
}

}  // namespace roomlattice::platform::linux
