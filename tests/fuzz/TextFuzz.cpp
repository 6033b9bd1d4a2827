#include "support/Text.h"

#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const std::string text = tests::textOf(data, size);
  const std::string trimmed = trimWhitespace(text);
  tests::require(text.find(trimmed) != std::string::npos, "only ends are taken away");
  tests::require(trimWhitespace(trimmed) == trimmed, "what is trimmed stays");
  tests::require(!isUtf8(text) || isUtf8(trimmed), "no character is cut in two");
  return 0;
}
