# shellcheck shell=bash
# The demonstration: a desktop without a screen, and one function after the other that uses the program on it. To be
# sourced after common.sh. A new step is a file here with its function, sourced below and called in run_demo.

# shellcheck source=scripts/lib/processes.sh
. "$root/scripts/lib/processes.sh"
# shellcheck source=scripts/demo/desktop.sh
. "$root/scripts/demo/desktop.sh"
# shellcheck source=scripts/demo/program.sh
. "$root/scripts/demo/program.sh"
# shellcheck source=scripts/demo/screenshots.sh
. "$root/scripts/demo/screenshots.sh"
# shellcheck source=scripts/demo/switching.sh
. "$root/scripts/demo/switching.sh"
# shellcheck source=scripts/demo/looks.sh
. "$root/scripts/demo/looks.sh"
# shellcheck source=scripts/demo/labels.sh
. "$root/scripts/demo/labels.sh"
# shellcheck source=scripts/demo/menu.sh
. "$root/scripts/demo/menu.sh"
# shellcheck source=scripts/demo/preferences.sh
. "$root/scripts/demo/preferences.sh"

log_folder=$root/build/demo-logs

# A desktop, which goes when the script ends.
prepare_demo() {
  mkdir -p "$log_folder" "$screenshot_folder"
  rm -f "$log_folder"/*.log "$screenshot_folder"/*.png
  trap stop_desktop EXIT
  trap 'exit 130' INT TERM HUP PIPE
  start_desktop
}

run_demo() {
  prepare_demo
  open_sample_windows
  note "Desktop without a screen: display $DISPLAY, window manager $window_manager"
  show_tour
  show_menu
  show_labels
  show_switching
  show_looks
  show_preferences
  note "All that was expected was seen. Screenshots: ${screenshot_folder#"$PWD"/}"
}
