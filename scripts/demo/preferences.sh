# shellcheck shell=bash
# The preferences window: its pages, what they do, and the diagnostic log. To be sourced after menu.sh.

preferences_title='Plinkhaven Preferences'

show_preferences() {
  start_program "{$named_settings}"
  switch_to_desktop 1
  open_preferences
  take_screenshot preferences-label "The preferences window, with the page of the labels"
  show_colors
  show_menu_bar
  show_diagnostics
  show_dark_side
  stop_program
}

show_colors() {
  choose_page 100
  take_screenshot preferences-colors "The page of the colours"
  # The second palette of the list.
  click_in_preferences 300 111
  xdotool key Down Return
  wait_for "the colours in the settings" 10 grep -q SpaceColors "$settings_file"
  take_screenshot palette "Another palette, applied to all desktops at once"
  click_in_preferences 227 222
  wait_for "the colour dialog" 10 wmctrl -R "Color: Mail"
  take_screenshot color-dialog "The colour of one desktop, with its opacity"
  xdotool key Escape
}

show_menu_bar() {
  choose_page 170
  take_screenshot preferences-menu-bar "The page of the status item and of switching"
  # Switching without the animation.
  click_in_preferences 47 158
  wait_for "the setting" 10 grep -q '"InstantMenuSwitch": true' "$settings_file"
  show_row_switch instant "A click on a row after that switches at once"
  switch_to_desktop 1
}

show_diagnostics() {
  choose_page 258
  click_in_preferences 137 157
  wait_for "the program's lines on the clipboard" 20 clipboard_has 'tour end'
  take_screenshot diagnostics "The program's log lines are on the clipboard: $(xclip -o -selection clipboard | wc -l)"
}

show_dark_side() {
  set_theme Adwaita-dark
  take_screenshot preferences-dark "The window on a dark desktop"
  wmctrl -c "$preferences_title"
  open_menu
  point_at_row 3
  take_screenshot menu-dark "And the menu"
  close_menu
  set_theme Adwaita
}

# By its shortcut, with the menu open.
open_preferences() {
  open_menu
  xdotool key ctrl+comma
  wait_for "the preferences window" 10 wmctrl -R "$preferences_title"
}

# click_in_preferences X Y: counted from the window's own corner.
click_in_preferences() {
  local left top
  read -r left top < <(xwininfo -name "$preferences_title" | awk '
    /Absolute upper-left X:/ { left = $NF }
    /Absolute upper-left Y:/ { top = $NF }
    END { print left, top }')
  point_at "$((left + $1))" "$((top + $2))"
  xdotool click 1
}

# choose_page X: the tabs are in one line.
choose_page() { click_in_preferences "$1" 25; }

clipboard_has() { xclip -o -selection clipboard | grep -q "$1"; }
