#include "platform/linux/control/ControlNames.h"

#include <algorithm>
#include <string_view>

namespace roomlattice::platform::linux {
namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isNumber(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, isDigit);
}

/// Letters and digits, and an underscore with two hexadecimal digits for any other byte.
std::string escaped(std::string_view text) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  std::string result;
  for (const char character : text) {
    if (isDigit(character) || (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')) {
      result += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      result += '_';
      result += hexadecimal[byte / 16];
      result += hexadecimal[byte % 16];
    }
  }
  return result;
}

}  // namespace

std::string controlNameOfDisplay(const std::string& display) {
  const std::size_t colon = display.rfind(':');
  if (colon == std::string::npos) {
    return "";
  }
  const std::string_view all = display;
  const std::string_view host = all.substr(0, colon);
  const std::string_view numbers = all.substr(colon + 1);
  const std::size_t dot = numbers.find('.');
  const std::string_view server = numbers.substr(0, dot);
  const std::string_view screen = dot == std::string_view::npos ? "0" : numbers.substr(dot + 1);
  if (!isNumber(server) || !isNumber(screen)) {
    return "";
  }
  std::string name = controlName;
  name += ".Display";
  name += host == "unix" ? "" : escaped(host);
  for (const std::string_view number : {server, screen}) {
    name += '_';
    name += number;
  }
  return name;
}

}  // namespace roomlattice::platform::linux
