#include "platform/linux/system/LastResort.h"

#include "platform/linux/system/StandardStreams.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <sys/resource.h>
#include <unistd.h>

namespace roomlattice::platform::linux {
namespace {

// Sixteen are open while nothing happens, and more while plug-ins and fonts are loaded. Libraries that cannot open one
// crash, or wait for ever.
constexpr rlim_t leastFiles = 96;
constexpr rlim_t enoughFiles = 1024;

// Most of it is never used: libraries, fonts and the stacks of threads only take their places. In bytes.
constexpr rlim_t leastAddressSpace = rlim_t{1} << 30U;

// Half of it is in use where there are a few desktops. In bytes.
constexpr rlim_t leastData = rlim_t{96} << 20U;

[[noreturn]] void end() {
  writeAtOnce(STDERR_FILENO, "roomlattice: memory or something else has run out that it cannot do without: ");
  try {
    if (const std::exception_ptr exception = std::current_exception()) {
      std::rethrow_exception(exception);
    }
  } catch (const std::exception& exception) {
    writeAtOnce(STDERR_FILENO, exception.what());
  } catch (...) {
    writeAtOnce(STDERR_FILENO, "something unknown");
  }
  writeAtOnce(STDERR_FILENO, "\n");
  _exit(EXIT_FAILURE);
}

rlimit limitOf(__rlimit_resource resource) {
  rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
  getrlimit(resource, &limit);
  return limit;
}

}  // namespace

void endWithALineWhereNothingHelps() {
  std::set_terminate(end);
}

std::optional<std::string> lackOfResources() {
  rlimit files = limitOf(RLIMIT_NOFILE);
  if (files.rlim_cur < enoughFiles && files.rlim_cur < files.rlim_max) {
    files.rlim_cur = std::min(files.rlim_max, enoughFiles);
    setrlimit(RLIMIT_NOFILE, &files);
  }
  if (files.rlim_cur < leastFiles) {
    return "only " + std::to_string(files.rlim_cur) + " files may be open, and " + std::to_string(leastFiles) +
           " have to (see ulimit -n)";
  }
  if (limitOf(RLIMIT_AS).rlim_cur < leastAddressSpace) {
    return "the address space is limited to less than a gibibyte (see ulimit -v)";
  }
  if (limitOf(RLIMIT_DATA).rlim_cur < leastData) {
    return "memory is limited to less than 96 MiB (see ulimit -d)";
  }
  return std::nullopt;
}

}  // namespace roomlattice::platform::linux
