#include "preferences/CodableColor.h"

#include "support/JsonText.h"
#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const auto document = fromJson(tests::textOf(data, size));
  const auto colors = document ? decodeSpaceColors(*document) : std::nullopt;
  if (colors) {
    tests::require(decodeSpaceColors(encode(*colors)) == colors, "colours read as they were written");
  }
  return 0;
}
