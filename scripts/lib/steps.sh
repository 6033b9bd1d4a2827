# shellcheck shell=bash
# Steps with a heading, a duration and a remembered result. To be sourced after common.sh.

step_results=()
failed_steps=()

heading() { printf '\n==== %s\n' "$*"; }

# run_step NAME COMMAND...: a failure is remembered and does not end the script.
run_step() {
  local name=$1 started=$SECONDS status=0
  shift
  heading "$name"
  # Not in a condition: there `set -e` would mean nothing within the command.
  set +e
  (
    set -euo pipefail
    "$@"
  )
  status=$?
  set -e
  finish_step "$name" "$status" $((SECONDS - started))
}

begun_folder=
begun_steps=()
begun_processes=()

# begin_step NAME COMMAND...: like run_step, beside what comes next. What it prints comes with await_steps.
begin_step() {
  local name=$1 outcome
  shift
  begun_folder=${begun_folder:-$(mktemp -d)}
  trap end_begun_steps EXIT
  outcome=$begun_folder/${#begun_steps[@]}
  # In a process group of its own, all of which can be ended.
  set -m
  (
    started=$SECONDS status=0
    set +e
    (
      set -euo pipefail
      "$@"
    ) >"$outcome.output" 2>&1
    status=$?
    printf '%s %s\n' "$status" $((SECONDS - started)) >"$outcome"
  ) &
  set +m
  begun_steps+=("$name")
  begun_processes+=($!)
}

# Tells how the steps ended that were begun.
await_steps() {
  local index status seconds
  for index in "${!begun_steps[@]}"; do
    wait "${begun_processes[index]}" || true
    unset "begun_processes[index]"
    heading "${begun_steps[index]}"
    cat "$begun_folder/$index.output"
    read -r status seconds <"$begun_folder/$index" || status=1 seconds=0
    finish_step "${begun_steps[index]}" "$status" "$seconds"
  done
  end_begun_steps
}

end_begun_steps() {
  local process
  for process in ${begun_processes[@]+"${begun_processes[@]}"}; do
    kill -- "-$process" 2>/dev/null || true
  done
  rm -rf "$begun_folder"
  begun_folder=
  begun_steps=()
  begun_processes=()
}

finish_step() {
  local name=$1 status=$2 seconds=$3 result=ok
  if [[ $status != 0 ]]; then
    result=FAILED
    failed_steps+=("$name")
  fi
  step_results+=("$(printf '%-6s %4d s  %s' "$result" "$seconds" "$name")")
  printf -- '---- %s: %s (%d s)\n' "$name" "$result" "$seconds"
}

step_failed() {
  local name
  for name in ${failed_steps[@]+"${failed_steps[@]}"}; do
    if [[ $name == "$1" ]]; then return 0; fi
  done
  return 1
}

print_steps() {
  heading "Steps"
  printf '%s\n' "${step_results[@]}"
}
