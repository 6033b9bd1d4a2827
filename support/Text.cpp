#include "support/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace roomlattice {
namespace {

using namespace std::string_view_literals;

constexpr std::array whitespace = {
    "\t"sv,     "\n"sv,     "\v"sv,     "\f"sv,     "\r"sv,     " "sv,      "\u0085"sv, "\u00A0"sv, "\u1680"sv,
    "\u2000"sv, "\u2001"sv, "\u2002"sv, "\u2003"sv, "\u2004"sv, "\u2005"sv, "\u2006"sv, "\u2007"sv, "\u2008"sv,
    "\u2009"sv, "\u200A"sv, "\u2028"sv, "\u2029"sv, "\u202F"sv, "\u205F"sv, "\u3000"sv,
};

/// The length of the well-formed sequence that starts `bytes`, or 0. The ranges are those of RFC 3629, section 4.
std::size_t sequenceLength(std::string_view bytes) {
  const auto at = [&bytes](std::size_t index) {
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
  };
  const auto within = [](unsigned byte, unsigned low, unsigned high) { return byte >= low && byte <= high; };
  const auto tail = [&](std::size_t index) { return within(at(index), 0x80, 0xBF); };
  const unsigned lead = at(0);
  if (lead <= 0x7F) {
    return 1;
  }
  if (within(lead, 0xC2, 0xDF)) {
    return tail(1) ? 2 : 0;
  }
  if (within(lead, 0xE0, 0xEF)) {
    const bool second = lead == 0xE0 ? within(at(1), 0xA0, 0xBF) : lead == 0xED ? within(at(1), 0x80, 0x9F) : tail(1);
    return second && tail(2) ? 3 : 0;
  }
  if (within(lead, 0xF0, 0xF4)) {
    const bool second = lead == 0xF0 ? within(at(1), 0x90, 0xBF) : lead == 0xF4 ? within(at(1), 0x80, 0x8F) : tail(1);
    return second && tail(2) && tail(3) ? 4 : 0;
  }
  return 0;
}

}  // namespace

std::string trimWhitespace(const std::string& text) {
  std::string_view rest = text;
  const auto* const end = whitespace.end();
  for (;;) {
    const auto* blank = std::ranges::find_if(whitespace, [&](std::string_view one) { return rest.starts_with(one); });
    if (blank == end) {
      break;
    }
    rest.remove_prefix(blank->size());
  }
  // UTF-8 is self-synchronising: an encoded character at the end of the text is that character.
  for (;;) {
    const auto* blank = std::ranges::find_if(whitespace, [&](std::string_view one) { return rest.ends_with(one); });
    if (blank == end) {
      break;
    }
    rest.remove_suffix(blank->size());
  }
  return std::string(rest);
}

bool isUtf8(const std::string& bytes) {
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::size_t length = sequenceLength(rest);
    if (length == 0) {
      return false;
    }
    rest.remove_prefix(length);
  }
  return true;
}

}  // namespace roomlattice
