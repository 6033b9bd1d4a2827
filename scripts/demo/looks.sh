# shellcheck shell=bash
# What the settings make of the status item. To be sourced by demo.sh after switching.sh.

show_looks() {
  show_foreground_mode
  show_fixed_width
  show_icon
}

# A light colour is darkened on a light bar and stays as it is on a dark one.
show_foreground_mode() {
  start_program "{$named_settings, \"ColorMode\": \"colorForeground\"}"
  switch_to_desktop 1
  expect_item_color '#586A80' 12 2 "the name in a darker shade"
  take_screenshot text-color "The colour of the desktop on the text instead of behind it"
  set_theme Adwaita-dark
  expect_item_color "${desktop_colors[1]}" 12 2 "the name in the full shade"
  take_screenshot dark "The same after the desktop has turned dark"
  set_theme Adwaita
  expect_item_color '#586A80' 12 2 "the name in the darker shade again"
  stop_program
}

show_fixed_width() {
  start_program "{$named_settings, \"MenuBarWidthMode\": \"maxTitleLength\"}"
  switch_to_desktop 1
  expect_item_width 140
  expect_item_color "${desktop_colors[1]}" 2 40 "fixed width"
  take_screenshot fixed-width "A width that stays the same on every desktop"
  stop_program
}

show_icon() {
  start_program "{$named_settings, \"ShowSpaceNameInMenuBar\": false}"
  switch_to_desktop 1
  expect_item_square
  take_screenshot icon "An icon instead of the name"
  stop_program
}

expect_item_width() {
  wait_for "a status item $1 pixels wide" 10 item_is_wide "$1"
}

item_is_wide() {
  local width
  read -r _ _ width _ < <(status_item_geometry)
  [[ $width == "$1" ]]
}

expect_item_square() { wait_for "a square status item" 10 item_is_square; }

item_is_square() {
  local width height
  read -r _ _ width height < <(status_item_geometry)
  [[ -n $width && $width == "$height" ]]
}
