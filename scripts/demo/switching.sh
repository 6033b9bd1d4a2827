# shellcheck shell=bash
# The main job: the status item names the desktop in front, in its colour. To be sourced by demo.sh.

# The first colours of the palette that desktops have as long as the user gives them none.
desktop_colors=('#FFB5C2' '#B0D4FF' '#B8F5B8' '#FFD999')

show_switching() {
  local captions=(
    "The first desktop, which the user has not named"
    "The second desktop, which the user calls Mail"
    "The third desktop, called Deep work"
    "The fourth desktop"
  ) names=(first-desktop mail deep-work fourth-desktop) desktop
  start_program "{$named_settings}"
  for desktop in 0 1 2 3; do
    switch_to_desktop "$desktop"
    expect_item_color "${desktop_colors[desktop]}" 2 40 "desktop $((desktop + 1))"
    take_screenshot "${names[desktop]}" "${captions[desktop]}"
  done
  stop_program
}
