#include "platform/linux/ctl/PlainText.h"

#include <algorithm>
#include <cwchar>

namespace roomlattice::platform::linux {

std::string plainText(const std::string& text) {
  std::string plain = text;
  std::ranges::replace_if(
      plain, [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }, '?');
  // U+0080 to U+009F
  for (std::size_t at = 0; (at = plain.find('\xc2', at)) != std::string::npos; ++at) {
    if (at + 1 < plain.size() && static_cast<unsigned char>(plain[at + 1]) < 0xa0) {
      plain.replace(at, 2, "?");
    }
  }
  return plain;
}

std::size_t columnsOf(const std::string& text) {
  std::mbstate_t state{};
  std::size_t columns = 0;
  for (std::size_t at = 0; at < text.size();) {
    wchar_t character = 0;
    const std::size_t length = std::mbrtowc(&character, text.data() + at, text.size() - at, &state);
    if (length == 0 || length > text.size()) {
      // Not of the locale: one column for each byte is as good as any guess.
      ++at;
      ++columns;
      state = {};
      continue;
    }
    at += length;
    columns += static_cast<std::size_t>(std::max(wcwidth(character), 0));
  }
  return columns;
}

}  // namespace roomlattice::platform::linux
