# shellcheck shell=bash
# Starting the program on the demonstration's desktop, with the settings of a step. To be sourced after desktop.sh.

program=$root/build/release/app/roomlattice
program_pid=
settings_file=

# Where the user has named desktops: the names, as they are stored.
named_settings='"SpaceNames": {}'

# start_program SETTINGS: with SETTINGS, a JSON object, as all that is stored; waits until the tour at launch is over,
# so that no switch of a step mixes with it.
start_program() {
  launch_program "$1"
  wait_for_end_of_tour
}

launch_program() {
  settings_file=$XDG_CONFIG_HOME/roomlattice/settings.json
  mkdir -p "${settings_file%/*}"
  printf '%s\n' "$1" >"$settings_file"
  start roomlattice "$program"
  program_pid=$!
  wait_for "the status item" 20 status_item_geometry
}

wait_for_end_of_tour() { wait_for "the end of the tour" 40 grep -q 'tour end' "$log_folder/roomlattice.log"; }

stop_program() {
  kill -0 "$program_pid" 2>/dev/null || die "roomlattice has ended by itself (log in $log_folder)"
  stop "$program_pid"
  program_pid=
}

# Prints the status item's left, top, width and height; fails while there is none.
status_item_geometry() {
  local window='' attempt
  # The list cannot be read while a window of it is going.
  for ((attempt = 0; attempt < 10; ++attempt)); do
    window=$(status_item_window) && break
  done
  # Without one, xwininfo would wait for a click.
  if [[ -z $window ]]; then return 1; fi
  xwininfo -id "$window" | awk '
    /Absolute upper-left X:/ { left = $NF }
    /Absolute upper-left Y:/ { top = $NF }
    /Width:/ { width = $NF }
    /Height:/ { height = $NF }
    /Map State: IsViewable/ { visible = 1 }
    END { if (!visible) exit 1; print left, top, width, height }'
}

# The program's only window of the type dock.
status_item_window() {
  local list windows window
  list=$(wmctrl -l 2>/dev/null) || return 1
  mapfile -t windows < <(awk '$2 == -1 && $NF == "Roomlattice" { print $1 }' <<<"$list")
  for window in "${windows[@]}"; do
    if xprop -id "$window" _NET_WM_WINDOW_TYPE | grep -q _NET_WM_WINDOW_TYPE_DOCK; then
      printf '%s\n' "$window"
      return
    fi
  done
}
