# shellcheck shell=bash
# Processes of a script's own, and waiting for what they do. To be sourced after common.sh.

started_pids=()

# start NAME COMMAND...: runs it in the background, with its output in $log_folder/NAME.log. Its id is in $!.
start() {
  local name=$1
  shift
  "$@" >"${log_folder:?}/$name.log" 2>&1 </dev/null &
  started_pids+=("$!")
}

# Ends one of the started processes.
stop() {
  local pid=$1 attempt
  kill "$pid" 2>/dev/null || true
  for ((attempt = 0; attempt < 50; ++attempt)); do
    if ! kill -0 "$pid" 2>/dev/null; then break; fi
    sleep 0.1
  done
  kill -KILL "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
}

# Ends them all, the last one first.
stop_all() {
  local index
  for ((index = ${#started_pids[@]} - 1; index >= 0; --index)); do
    stop "${started_pids[index]}"
  done
  started_pids=()
}

# wait_for WHAT SECONDS COMMAND...: until COMMAND succeeds; after SECONDS the script ends with a message.
wait_for() {
  local what=$1 seconds=$2 deadline
  shift 2
  deadline=$((SECONDS + seconds))
  until "$@" >/dev/null 2>&1; do
    if ((SECONDS >= deadline)); then die "waited $seconds s in vain for $what (logs in ${log_folder:?})"; fi
    sleep 0.05
  done
}
