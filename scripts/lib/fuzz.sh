# shellcheck shell=bash
# Runs the fuzzers. To be sourced after common.sh.

# In MiB: no input takes more memory, and none takes longer than five seconds.
fuzz_memory_limit=1024

# fuzz PROGRAM SECONDS FINDS: a line of the table. What it writes is in the folder FINDS.
fuzz() {
  local program=$1 seconds=$2 finds=$3 name status=0
  name=${program##*_}
  mkdir -p "$root/build/fuzz/corpus/$name"
  "$program" -max_total_time="$seconds" -rss_limit_mb="$fuzz_memory_limit" -timeout=5 -print_final_stats=1 \
    -artifact_prefix="$finds/$name-" "$root/build/fuzz/corpus/$name" "$root/tests/fuzz/seeds/$name" \
    >"$finds/$name.log" 2>&1 || status=$?
  awk -v name="$name" -v status="$status" '
    /^stat::number_of_executed_units/ { runs = $2 }
    { for (i = 1; i < NF; ++i) if ($i == "cov:") reached = $(i + 1) }
    END { printf "%-16s %12d %10d   %s\n", name, runs, reached, status == 0 ? "ok" : "FAULT FOUND" }' "$finds/$name.log"
  return "$status"
}

# run_fuzzers PRESET SECONDS AT_ONCE: fails if one has found a fault.
run_fuzzers() {
  local program running=0 faults=0 finds=$root/build/fuzz/finds
  mkdir -p "$finds"
  printf '%-16s %12s %10s\n' fuzzer inputs reached
  for program in "$root/build/$1"/tests/fuzz/roomlattice_fuzz_*; do
    if ((running == $3)); then
      wait -n || faults=$((faults + 1))
      running=$((running - 1))
    fi
    fuzz "$program" "$2" "$finds" &
    running=$((running + 1))
  done
  while ((running > 0)); do
    wait -n || faults=$((faults + 1))
    running=$((running - 1))
  done
  if ((faults > 0)); then die "$faults fuzzers have found a fault; their last words are in $finds"; fi
}
