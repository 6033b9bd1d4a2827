# shellcheck shell=bash
# A desktop without a screen: X server, session bus, window manager, compositor and wallpaper, all of the script's
# own, with a home folder of its own. To be sourced after processes.sh.

desktop_size=1280x800
desktop_count=4
settings_manager_pid=
window_manager=${ROOMLATTICE_WM:-openbox}

start_desktop() {
  # Sockets live in there, and their paths must be short.
  desktop_folder=$(mktemp -d /tmp/roomlattice-demo.XXXXXX)
  use_private_folders
  start_x_server
  start_session_bus
  start_window_manager
  start_compositor
  set_theme Adwaita
  hsetroot -add '#22384f' -add '#5b8aa6' -add '#c9b79c' -gradient 155 >/dev/null
}

stop_desktop() {
  stop_all
  if [[ -n ${desktop_folder-} ]]; then rm -rf "$desktop_folder"; fi
}

# Nothing of the user's session may reach the demonstration, nor the other way round.
use_private_folders() {
  unset "${!XDG_@}" "${!QT_@}" "${!GTK_@}" "${!KDE_@}" "${!DBUS_@}" "${!WAYLAND_@}" XAUTHORITY SESSION_MANAGER
  export HOME=$desktop_folder/home
  export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_CACHE_HOME=$HOME/.cache
  export XDG_STATE_HOME=$HOME/.local/state XDG_RUNTIME_DIR=$desktop_folder/runtime
  mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_STATE_HOME"
  mkdir -m 700 "$XDG_RUNTIME_DIR"
}

start_x_server() {
  local number=$desktop_folder/display
  # Without the repeating of keys, which a busy machine may hold for long.
  start xvfb Xvfb -r -displayfd 3 -screen 0 "${desktop_size}x24" -nolisten tcp -noreset 3>"$number"
  # The number is complete with its line end.
  wait_for "the X server" 30 grep -q '^[0-9]' "$number"
  DISPLAY=:$(<"$number")
  export DISPLAY
}

start_session_bus() {
  export DBUS_SESSION_BUS_ADDRESS=unix:path=$XDG_RUNTIME_DIR/bus
  start dbus dbus-daemon --session --nofork --nopidfile --address="$DBUS_SESSION_BUS_ADDRESS"
  wait_for "the session bus" 30 test -S "$XDG_RUNTIME_DIR/bus"
}

start_window_manager() {
  case $window_manager in
    openbox)
      write_openbox_settings "$desktop_folder/openbox.xml"
      start openbox openbox --sm-disable --config-file "$desktop_folder/openbox.xml"
      ;;
    xfwm4) start xfwm4 xfwm4 --compositor=on ;;
    kwin_x11)
      write_kwin_settings
      start kwin_x11 kwin_x11
      ;;
    *) die "ROOMLATTICE_WM is $window_manager; known are openbox, xfwm4 and kwin_x11" ;;
  esac
  wait_for "the window manager $window_manager" 60 wmctrl -m
  wait_for "$desktop_count desktops" 30 set_desktop_count
}

# Without the name of the desktop in mid-screen at each switch.
write_openbox_settings() {
  cat >"$1" <<XML
<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <desktops><number>$desktop_count</number><popupTime>0</popupTime></desktops>
</openbox_config>
XML
}

# Under a server without OpenGL, KWin takes the compositor's place and composites nothing.
write_kwin_settings() {
  cat >"$XDG_CONFIG_HOME/kwinrc" <<INI
[Compositing]
Enabled=false

[Desktops]
Number=$desktop_count
Rows=1
INI
}

start_compositor() {
  # xfwm4 is one itself.
  if [[ $window_manager == xfwm4 ]]; then return; fi
  start picom picom --config /dev/null --backend xrender
  wait_for "the compositor" 30 window_exists picom
}

# The light or the dark half of a pair of themes, as a desktop's own settings would choose it.
set_theme() {
  printf 'Net/ThemeName "%s"\n' "$1" >"$desktop_folder/xsettings.conf"
  if [[ -z $settings_manager_pid ]]; then
    start xsettingsd xsettingsd --config="$desktop_folder/xsettings.conf"
    settings_manager_pid=$!
  else
    kill -HUP "$settings_manager_pid"
  fi
  wait_for "the theme $1" 10 theme_is "$1"
}

theme_is() { dump_xsettings | grep -q "^Net/ThemeName \"$1\"\$"; }

# One window on every desktop, so that it shows which one is in front.
open_sample_windows() {
  local desktop title
  for ((desktop = 0; desktop < desktop_count; ++desktop)); do
    title="A window of desktop $((desktop + 1))"
    start "window-$desktop" xterm -fa 'DejaVu Sans Mono' -fs 13 -bg '#f4f1ea' -fg '#333333' -title "$title" \
      -geometry "44x9+$((150 + 90 * desktop))+$((190 + 70 * desktop))" \
      -e sh -c "printf '\n\n   %s.' '$title'; exec sleep 100000"
    wait_for "$title" 20 is_managed "$title"
    wmctrl -r "$title" -t "$desktop"
  done
}

is_managed() { wmctrl -l | grep -q "$1\$"; }

# To be tried again: a window manager that is starting may not hear.
set_desktop_count() {
  if ! has_desktops "$desktop_count"; then wmctrl -n "$desktop_count"; fi
  has_desktops "$desktop_count"
}

has_desktops() { [[ $(wmctrl -d | wc -l) == "$1" ]]; }

window_exists() { xwininfo -root -tree | grep -q "\"$1\""; }

# From 0.
current_desktop() { wmctrl -d | awk '$2 == "*" { print $1 }'; }

desktop_is() { [[ $(current_desktop) == "$1" ]]; }

# Switches as any other program would.
switch_to_desktop() {
  wmctrl -s "$1"
  wait_for "desktop $1 to be the current one" 10 desktop_is "$1"
}
