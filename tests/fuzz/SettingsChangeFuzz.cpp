#include "platform/linux/storage/SettingsChange.h"

#include "support/JsonText.h"
#include "tests/fuzz/FuzzInput.h"

/// A JSON array of what a program knew, what it sets, and what another one has written meanwhile.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const auto document = fromJson(tests::textOf(data, size));
  const auto* values = document ? document->asArray() : nullptr;
  if (values == nullptr || values->size() != 3) {
    return 0;
  }
  const platform::linux::SettingsChange change(values->at(0), values->at(1));
  tests::require(change.appliedTo(values->at(0)) == values->at(1), "without another one it is as it was set");
  const platform::Value merged = change.appliedTo(values->at(2));
  tests::require(change.appliedTo(merged) == merged, "a change made twice is made once");
  return 0;
}
