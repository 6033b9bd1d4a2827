#include "platform/x11/appearance/XSettings.h"

#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const std::string bytes = tests::textOf(data, size);
  if (const auto texts = platform::x11::parseXSettings(bytes)) {
    std::size_t sum = 0;
    for (const auto& [name, text] : *texts) {
      sum += name.size() + text.size();
    }
    tests::require(sum <= size, "settings are no longer than what they stand in");
  }
  return 0;
}
