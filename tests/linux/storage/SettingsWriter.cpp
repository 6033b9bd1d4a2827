// Writes numbers to a settings file: SettingsWriter FILE KEY COUNT stores 1 to COUNT under KEY, one after the other,
// and prints now and then the last that is certain to be in the file.

#include "platform/linux/storage/LinuxDefaults.h"

#include <cstdio>
#include <cstdlib>

int main(int, char** arguments) {
  using namespace roomlattice::platform;
  linux::LinuxDefaults defaults(arguments[1],
                                [](const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); });
  const std::int64_t count = std::atoll(arguments[3]);
  for (std::int64_t number = 1; number <= count; ++number) {
    // Of changing length, so that a file put together of two versions would not be one.
    const std::string filling(static_cast<std::size_t>(number * 7919 % 20000), 'x');
    defaults.set(arguments[2], Value::Array{number, filling});
    if (number % 5 == 0 && defaults.waitUntilWritten(std::chrono::seconds(10))) {
      std::printf("%lld\n", static_cast<long long>(number));
      std::fflush(stdout);
    }
  }
  return EXIT_SUCCESS;
}
