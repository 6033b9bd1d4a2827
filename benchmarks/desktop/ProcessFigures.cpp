#include "benchmarks/desktop/ProcessFigures.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace roomlattice::benchmarks {
namespace {

/// The number after `key` in lines of keys and values.
long numberIn(const std::filesystem::path& file, const std::string& key) {
  std::ifstream stream(file);
  for (std::string word; stream >> word;) {
    long number = 0;
    if (word == key && stream >> number) {
      return number;
    }
  }
  return 0;
}

template <class Sum, class Of>
Sum sumOverThreads(const std::string& folder, Sum sum, Of of) {
  std::error_code error;
  for (const auto& thread : std::filesystem::directory_iterator(folder + "/task", error)) {
    sum += of(thread.path());
  }
  return sum;
}

}  // namespace

std::chrono::nanoseconds ProcessFigures::processorTime() const {
  // The first number of a thread's schedstat.
  return sumOverThreads(folder_, std::chrono::nanoseconds(0), [](const std::filesystem::path& thread) {
    std::chrono::nanoseconds::rep time = 0;
    std::ifstream(thread / "schedstat") >> time;
    return std::chrono::nanoseconds(time);
  });
}

long ProcessFigures::wakeUps() const {
  return sumOverThreads(folder_, 0L, [](const std::filesystem::path& thread) {
    return numberIn(thread / "status", "voluntary_ctxt_switches:");
  });
}

long ProcessFigures::memory() const {
  return numberIn(folder_ + "/smaps_rollup", "Pss:");
}

}  // namespace roomlattice::benchmarks
