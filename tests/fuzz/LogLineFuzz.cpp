#include "platform/linux/system/LogLine.h"

#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  const std::string log = tests::textOf(data, size);
  const auto start = std::chrono::system_clock::from_time_t(1700000000);
  const std::string recent = platform::linux::logSince(start, log);
  tests::require(recent.size() <= log.size() + 1, "a part is no longer than the whole, but for its end");
  tests::require(platform::linux::logSince(start, recent) == recent, "the recent part of the recent part is all of it");
  return 0;
}
