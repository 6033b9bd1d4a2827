# shellcheck shell=bash
# What a run left out, and where its time went: the slowest tests and the slowest sources. To be sourced after common.sh and steps.sh.

# Prints the COUNT lines `SECONDS WHAT` of standard input with the most seconds.
slowest() {
  sort --general-numeric-sort --reverse |
    awk -v count="$1" 'NR <= count { seconds = $1; sub(/^[^ ]* /, ""); printf "%8.1f s  %s\n", seconds, $0 }'
}

# skipped_tests PRESET: those of the last run, which ctest does not tell where they share a process.
skipped_tests() {
  heading "Skipped tests"
  sed -n 's/^\[  SKIPPED \] \([^ ]*\)\( (.*)\)\?$/\1/p' "$root/build/$1/Testing/Temporary/LastTest.log" | sort -u
}

# slowest_tests LINE...: the lines that ctest printed.
slowest_tests() {
  heading "The ten slowest tests"
  printf '%s\n' "$@" |
    sed -n 's/^ *[0-9]*\/[0-9]* Test *#[0-9]*: \([^ ]*\) .* \([0-9.]*\) sec.*$/\2 \1/p' | slowest 10
}

# slowest_sources SINCE PRESET...: of those compiled since then, in nanoseconds since the epoch.
slowest_sources() {
  local since=$1 preset log
  shift
  heading "The five slowest sources"
  for preset in "$@"; do
    log=$root/build/$preset/.ninja_log
    if [[ ! -f $log ]]; then continue; fi
    # Ninja's log: start and end in milliseconds, the time of the output in nanoseconds, and the output.
    awk -v since="$since" -v preset="$preset" '
      $3 >= since && $4 ~ /\.(o|gch|pch)$/ {
        sub(/CMakeFiles\/[^\/]*\.dir\//, "", $4)
        print ($2 - $1) / 1000, $4 " (" preset ")"
      }' "$log"
  done | slowest 5
}
