#include "platform/linux/storage/SettingsText.h"

#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const auto settings = platform::linux::fromSettingsText(tests::textOf(data, size));
  if (!settings) {
    return 0;
  }
  if (const auto text = platform::linux::toSettingsText(*settings)) {
    tests::require(platform::linux::fromSettingsText(*text) == settings, "what is written reads as it was");
  }
  return 0;
}
