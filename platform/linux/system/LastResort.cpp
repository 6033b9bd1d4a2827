#include "platform/linux/system/LastResort.h"

#include "platform/linux/system/StandardStreams.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <latch>
#include <pthread.h>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

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

// Libraries that read settings of fonts use most of it, and settings may be nested deeply. In bytes.
constexpr rlim_t leastStack = rlim_t{1} << 20U;
constexpr rlim_t usualStack = rlim_t{8} << 20U;

// As many as run at the same time: the toolkit waits for ever for one that it cannot have.
constexpr std::size_t leastThreads = 6;

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

/// What it is then.
rlim_t raise(__rlimit_resource resource, rlim_t wanted) {
  rlimit limit = limitOf(resource);
  if (limit.rlim_cur < wanted && limit.rlim_cur < limit.rlim_max) {
    limit.rlim_cur = std::min(limit.rlim_max, wanted);
    setrlimit(resource, &limit);
  }
  return limit.rlim_cur;
}

/// Threads have got the limit that was there at the start.
void makeStacksOfThreadsUsual() {
  pthread_attr_t attributes;
  std::size_t size = 0;
  if (pthread_getattr_default_np(&attributes) != 0) {
    return;
  }
  if (pthread_attr_getstacksize(&attributes, &size) == 0 && size < usualStack) {
    pthread_attr_setstacksize(&attributes, usualStack);
    pthread_setattr_default_np(&attributes);
  }
  pthread_attr_destroy(&attributes);
}

bool canHaveThreads() {
  std::latch isOver(1);
  std::vector<std::thread> threads;
  try {
    while (threads.size() < leastThreads) {
      threads.emplace_back([&isOver] { isOver.wait(); });
    }
  } catch (const std::system_error&) {
    // The number of those that could be had tells.
  }
  isOver.count_down();
  std::ranges::for_each(threads, &std::thread::join);
  return threads.size() == leastThreads;
}

}  // namespace

void endWithALineWhereNothingHelps() {
  std::set_terminate(end);
}

std::optional<std::string> lackOfResources() {
  if (const rlim_t files = raise(RLIMIT_NOFILE, enoughFiles); files < leastFiles) {
    return "only " + std::to_string(files) + " files may be open, and " + std::to_string(leastFiles) +
           " have to (see ulimit -n)";
  }
  if (limitOf(RLIMIT_AS).rlim_cur < leastAddressSpace) {
    return "the address space is limited to less than a gibibyte (see ulimit -v)";
  }
  if (limitOf(RLIMIT_DATA).rlim_cur < leastData) {
    return "memory is limited to less than 96 MiB (see ulimit -d)";
  }
  if (raise(RLIMIT_STACK, usualStack) < leastStack) {
    return "the stack is limited to less than a mebibyte (see ulimit -s)";
  }
  makeStacksOfThreadsUsual();
  if (!canHaveThreads()) {
    return "the user may not have as many threads as the program needs (see ulimit -u)";
  }
  return std::nullopt;
}

}  // namespace roomlattice::platform::linux
