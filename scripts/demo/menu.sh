# shellcheck shell=bash
# The menu: its rows, a new name typed into one, and switching by a click. To be sourced after labels.sh.

row_height=24

show_menu() {
  show_rows
  show_renaming
  show_row_switch animated "A click on a row switches, with the desktops in between passing by"
  remember_names
}

show_rows() {
  open_menu
  point_at_row 2
  take_screenshot menu "The menu, with the pointer on the row of the second desktop"
}

show_renaming() {
  type_name_of_row 2 Mail
  take_screenshot renaming "A new name is being typed"
  keep_name Mail
  take_screenshot renamed "Return keeps the name, and the menu stays open"
  type_name_of_row 3 "Deep work"
  keep_name "Deep work"
  close_menu
  catch_flash 1
  frame_screenshot new-name "The new name in the status item and on the label"
  open_menu
  take_screenshot next-menu "And in the menu when it is opened again"
  close_menu
}

# type_name_of_row ROW NAME
type_name_of_row() {
  click_pencil_of_row "$1"
  xdotool key ctrl+a
  xdotool type --delay 40 "$2"
}

keep_name() {
  xdotool key Return
  wait_for "the name in the settings" 10 grep -q "\"$1\"" "$settings_file"
}

# For the steps that start the program anew. What the desktops are known by is for the program to say.
remember_names() {
  named_settings=$(tr -d '\n' <"$settings_file" | grep -o '"SpaceNames": *{[^}]*}')
}

# show_row_switch NAME CAPTION: from the second desktop to the fourth.
show_row_switch() {
  switch_to_desktop 1
  open_menu
  click_row 4
  wait_for "the fourth desktop" 10 desktop_is 3
  take_screenshot "$1" "$2"
}

open_menu() {
  local left top width height
  read -r left top width height < <(status_item_geometry)
  xdotool mousemove "$((left + width / 2))" "$((top + height / 2))" click 1
  wait_for "the menu" 10 menu_geometry
}

close_menu() {
  xdotool key Escape
  wait_for "the menu to close" 10 menu_is_closed
}

menu_is_closed() { ! menu_geometry; }

# Prints the menu's left, top and width; fails while there is none. It is the window that no window manager manages.
menu_geometry() {
  local window
  # The search stumbles when a window goes meanwhile.
  for window in $(xdotool search --onlyvisible --class '^roomlattice$' 2>/dev/null || true); do
    if xwininfo -id "$window" 2>/dev/null | awk '
      /Absolute upper-left X:/ { left = $NF }
      /Absolute upper-left Y:/ { top = $NF }
      /Width:/ { width = $NF }
      /Override Redirect State: yes/ { unmanaged = 1 }
      END { if (!unmanaged) exit 1; print left, top, width }'; then
      return
    fi
  done
  return 1
}

# point_at_row ROW [FROM-RIGHT]: rows count from 1.
point_at_row() {
  local left top width
  read -r left top width < <(menu_geometry)
  if [[ -n ${2-} ]]; then left=$((left + width - $2)); else left=$((left + 80)); fi
  point_at "$left" "$((top + row_height * $1 - row_height / 2))"
}

click_row() {
  point_at_row "$1"
  xdotool click 1
  wait_for "the menu to close" 10 menu_is_closed
}

click_pencil_of_row() {
  point_at_row "$1"
  point_at_row "$1" 20
  xdotool click 1
}
