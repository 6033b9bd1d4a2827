#include "spaces/Text.h"

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

}  // namespace roomlattice
