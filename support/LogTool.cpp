#include "support/LogTool.h"

namespace roomlattice {

platform::LogQuery recentLogByTool() {
  return {.executable = "/usr/bin/log",
          .arguments = {"show", "--predicate", "process == \"Roomlattice\"", "--last", "10m", "--style", "compact"},
          .command = "log show --predicate 'process == \"Roomlattice\"' --last 10m --style compact"};
}

}  // namespace roomlattice
