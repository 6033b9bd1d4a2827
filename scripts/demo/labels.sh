# shellcheck shell=bash
# The tour that puts the labels in their places; the labels themselves: the flash after a switch, show-all from the
# corner, and sending them away with the pointer. To be sourced after switching.sh.

show_labels() {
  show_labels_of_all_desktops
  show_flash
  show_corner
  show_dismissal
  stop_program
}

show_tour() {
  launch_program "{}"
  wait_for "the overlay of the tour" 20 overlay_is_shown
  import -window root "ppm:$desktop_folder/screen.ppm"
  frame_screenshot tour "The tour at launch: every desktop is visited once"
  wait_for_end_of_tour
  wait_for "a label on each desktop" 10 each_desktop_has_a_label
  desktop_is 0 || die "the tour ended on desktop $(current_desktop), not where it began"
}

# By the window manager's own account.
show_labels_of_all_desktops() {
  local desktop tiles=()
  for desktop in 1 2 3 0; do
    catch_flash "$desktop"
    convert "$desktop_folder/screen.ppm" -resize 50% "$desktop_folder/tile-$desktop.png"
  done
  for desktop in 0 1 2 3; do tiles+=("$desktop_folder/tile-$desktop.png"); done
  montage "${tiles[@]}" -tile 2x2 -geometry +0+0 "ppm:$desktop_folder/screen.ppm"
  frame_screenshot labels "Each desktop has a label of its own, here just after it was switched to" without-item
}

show_flash() {
  catch_flash 2
  frame_screenshot flash "The label of the desktop that was switched to, which fades out"
  switch_to_desktop 0
}

show_corner() {
  sleep_until_faded 0
  point_at 640 700
  point_at 0 0
  wait_for "the labels of the other desktops to be shown in full" 10 labels_have_opacities 0 100 100 100
  take_screenshot corner "The pointer in the corner shows the labels of the other desktops in full, as xprop tells: $(label_opacities)"
}

show_dismissal() {
  point_at 640 400
  wait_for "the labels to go back" 10 labels_have_opacities 0 78 78 78
  take_screenshot dismissal "The pointer in the middle of the screen sends them away again: $(label_opacities)"
}

# overlay_is_shown: the window on all desktops that is no dock can be seen, and wholly.
overlay_is_shown() {
  local window
  for window in $(wmctrl -l | awk '$2 == -1 && $NF == "Roomlattice" { print $1 }'); do
    if [[ $window != "$(status_item_window)" && $(opacity_of "$window") == 100 ]]; then return; fi
  done
  return 1
}

# Prints "window desktop" for each label, in the order of the desktops.
label_windows() { wmctrl -l | awk '$2 >= 0 && $NF == "Roomlattice" { print $1, $2 }' | sort -n -k 2; }

label_of() { label_windows | awk -v desktop="$1" '$2 == desktop { print $1 }'; }

each_desktop_has_a_label() {
  [[ $(label_windows | awk '{ print $2 }' | tr '\n' ' ') == "0 1 2 3 " ]]
}

# In per cent, as the compositor is told.
opacity_of() {
  xprop -id "$1" _NET_WM_WINDOW_OPACITY |
    awk '/=/ { value = $NF; found = 1 } END { print found ? int(value / 4294967295 * 100 + 0.5) : 100 }'
}

# labels_have_opacities PERCENT...: one for each desktop.
labels_have_opacities() {
  local window found=()
  for window in $(label_windows | awk '{ print $1 }'); do found+=("$(opacity_of "$window")"); done
  [[ ${found[*]} == "$*" ]]
}

label_opacities() {
  local window desktop
  while read -r window desktop; do
    printf '%s%s of desktop %s' "$([[ $desktop == 0 ]] || echo ", ")" "$(opacity_of "$window") %" "$((desktop + 1))"
  done < <(label_windows)
}

sleep_until_faded() { wait_for "the label to fade" 10 label_is_faded "$1"; }

label_is_faded() { [[ $(opacity_of "$(label_of "$1")") == 0 ]]; }

# catch_flash DESKTOP: switches to it and leaves the screen with its label still clearly there in screen.ppm.
catch_flash() {
  local desktop=$1 attempt
  for ((attempt = 0; attempt < 10; ++attempt)); do
    sleep_until_faded "$(current_desktop)"
    switch_to_desktop $(((desktop + 1) % desktop_count))
    sleep_until_faded "$(current_desktop)"
    wmctrl -s "$desktop"
    # Once more, for the status item is drawn a moment later.
    import -window root "ppm:$desktop_folder/screen.ppm"
    import -window root "ppm:$desktop_folder/screen.ppm"
    # A label that is nearly gone makes no picture.
    if plate_is_dark "$desktop"; then return; fi
  done
  die "the label of desktop $desktop was never seen"
}

# The plate of the label of a desktop, left of the text, is to be nearly black.
plate_is_dark() {
  local left top height brightness
  read -r left top height < <(xwininfo -id "$(label_of "$1")" | awk '
    /Absolute upper-left X:/ { left = $NF }
    /Absolute upper-left Y:/ { top = $NF }
    /Height:/ { height = $NF }
    END { print left, top, height }')
  brightness=$(convert "$desktop_folder/screen.ppm" -crop "30x60+$((left + 20))+$((top + height / 2 - 30))" +repage \
    -colorspace gray -format '%[fx:round(100*mean)]' info:)
  ((brightness < 42))
}

# Moves the pointer like a hand does: other programs hear of nothing else.
point_at() {
  local x y
  eval "$(xdotool getmouselocation --shell | grep -E '^(X|Y)=' | sed 's/^X/x/; s/^Y/y/')"
  xdotool mousemove_relative --sync -- "$(($1 - x))" "$(($2 - y))"
}
