#include "platform/x11/connection/Properties.h"

#include "support/Text.h"
#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  for (const std::string& text : platform::x11::textsOf(tests::textOf(data, size))) {
    tests::require(isUtf8(text), "texts of a property are UTF-8");
    tests::require(text.find('\0') == std::string::npos, "a text ends at a zero byte");
  }
  return 0;
}
