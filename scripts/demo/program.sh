# shellcheck shell=bash
# Starting the program on the demonstration's desktop, with the settings of a step. To be sourced after desktop.sh.

program=$root/build/release/app/roomlattice
program_pid=

# start_program SETTINGS: with SETTINGS, a JSON object, as all that is stored; waits until the tour at launch is over,
# so that no switch of a step mixes with it.
start_program() {
  launch_program "$1"
  wait_for_end_of_tour
}

launch_program() {
  mkdir -p "$XDG_CONFIG_HOME/roomlattice"
  printf '%s\n' "$1" >"$XDG_CONFIG_HOME/roomlattice/settings.json"
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
  local window
  window=$(status_item_window)
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
  local window
  for window in $(wmctrl -l | awk '$2 == -1 && $NF == "Roomlattice" { print $1 }'); do
    if xprop -id "$window" _NET_WM_WINDOW_TYPE | grep -q _NET_WM_WINDOW_TYPE_DOCK; then
      printf '%s\n' "$window"
      return
    fi
  done
}
