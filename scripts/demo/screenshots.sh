# shellcheck shell=bash
# Labelled screenshots, and looking at what is on the screen. To be sourced after desktop.sh and program.sh.

screenshot_folder=$root/build/screenshots
screenshot_number=0
caption_font=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
strip_height=132

# take_screenshot NAME CAPTION: the whole screen, once it has come to rest.
take_screenshot() {
  capture_settled_screen "$desktop_folder/screen.ppm"
  frame_screenshot "$@"
}

# frame_screenshot NAME CAPTION [without-item]: keeps screen.ppm, with the caption and the status item, enlarged, below.
frame_screenshot() {
  local file screen=$desktop_folder/screen.ppm item=$desktop_folder/item.png caption
  screenshot_number=$((screenshot_number + 1))
  file=$(printf '%s/%02d-%s.png' "$screenshot_folder" "$screenshot_number" "$1")
  caption="$screenshot_number. $2"
  if [[ ${3-} == without-item ]]; then
    convert -size 1x1 xc:'#16181c' "$item"
  else
    enlarge_status_item "$screen" "$item"
  fi
  # A per cent sign is doubled for convert.
  convert "$screen" \
    \( -size "${desktop_size%x*}x$strip_height" xc:'#16181c' \
    \( -background none -fill white -font "$caption_font" -pointsize 21 -size "560x$((strip_height - 20))" \
    -gravity West caption:"${caption//%/%%}" \) -gravity West -geometry +24+0 -composite \
    "$item" -gravity East -geometry +24+0 -composite \) \
    -gravity None -append -strip "$file"
  note "  ${file#"$root"/}: $2"
}

# The compositor paints some time after the window manager has switched, and labels fade: the picture counts once it
# has stayed the same for a while.
capture_settled_screen() {
  local last=$desktop_folder/last.ppm attempt
  import -window root "ppm:$1"
  for ((attempt = 0; attempt < 40; ++attempt)); do
    mv "$1" "$last"
    sleep 0.25
    import -window root "ppm:$1"
    if cmp --quiet "$1" "$last"; then return; fi
  done
  die "the screen does not come to rest"
}

# As much as fits beside the caption, in whole steps, so that every pixel can be made out.
enlarge_status_item() {
  local left top width height factor
  read -r left top width height < <(status_item_geometry)
  factor=$((660 / (width + 8)))
  if ((factor > 4)); then factor=4; fi
  convert "$1" -crop "$((width + 8))x$((height + 4))+$((left - 4))+$top" +repage -scale "$((factor * 100))%" \
    -bordercolor '#5a6069' -border 1 "$2"
}

# How many pixels of the status item have the colour #RRGGBB, give or take a tolerance in per cent.
count_item_pixels() {
  local color=$1 tolerance=$2 left top width height
  read -r left top width height < <(status_item_geometry)
  import -window root -crop "${width}x$height+$left+$top" +repage "$desktop_folder/look.png"
  convert "$desktop_folder/look.png" -alpha off -fuzz "$tolerance%" -fill black +opaque "$color" -fill white \
    -opaque "$color" -format '%[fx:round(mean*w*h)]' info:
}

# expect_item_color COLOR TOLERANCE PERCENT WHAT: at least so much of the status item has the colour.
expect_item_color() {
  local color=$1 tolerance=$2 percent=$3 what=$4
  wait_for "$what: at least $percent % of the status item in $color" 10 \
    item_has_color "$color" "$tolerance" "$percent"
}

item_has_color() {
  local left top width height count
  read -r left top width height < <(status_item_geometry)
  count=$(count_item_pixels "$1" "$2")
  ((count * 100 >= width * height * $3))
}
