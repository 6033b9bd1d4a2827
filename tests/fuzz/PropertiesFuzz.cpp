#include "platform/x11/connection/Properties.h"

#include "support/Text.h"
#include "tests/fuzz/FuzzInput.h"

#include <string>
#include <vector>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const std::string bytes = tests::textOf(data, size);
  const std::vector<std::string> texts = platform::x11::rawTextsOf(bytes);
  tests::require(platform::x11::rawTextsOf(platform::x11::bytesOf(texts)) == texts,
                 "texts are written as they are read");
  for (const std::string& text : platform::x11::textsOf(bytes)) {
    tests::require(isUtf8(text), "texts of a property are UTF-8");
    tests::require(text.find('\0') == std::string::npos, "a text ends at a zero byte");
  }
  return 0;
}
