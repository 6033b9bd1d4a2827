#!/usr/bin/env bash
# What scripts/package-test does with the package, as root inside the Debian made for it.
set -euo pipefail

trial=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
# shellcheck source=scripts/lib/common.sh
. "$trial/lib/common.sh"
# shellcheck source=scripts/lib/processes.sh
. "$trial/lib/processes.sh"

log_folder=$trial
user=ordinary
home=/home/$user
settings=$home/.config/roomlattice/settings.json

as_user() {
  env -i PATH="$PATH" HOME="$home" LANG=C.UTF-8 DISPLAY=:7 XDG_RUNTIME_DIR="$home/run" \
    DBUS_SESSION_BUS_ADDRESS="unix:path=$home/run/bus" setpriv --reuid "$user" --regid "$user" --init-groups "$@"
}

# Every file of the system, but for those of the package manager's own and what changes by itself.
files_of_system() {
  find / -xdev \( -path /proc -o -path /dev -o -path /run -o -path /tmp -o -path /home -o -path "$trial" \
    -o -path /var/log -o -path /var/cache -o -path /var/lib/dpkg -o -path /var/lib/apt \) -prune \
    -o -type d -printf '%p %m %u\n' -o -printf '%p %m %u %s %l\n' | sort
}

# Where the trial has failed, which takes its folder along.
show_logs() { if [[ $? != 0 ]]; then tail -n 20 "$trial"/*.log >&2; fi; }

prepare() {
  export DEBIAN_FRONTEND=noninteractive
  apt-get --quiet update
  apt-get --quiet --yes --no-install-recommends satisfy "$(dpkg-deb --field "$trial/roomlattice.deb" Depends)"
  useradd --create-home "$user"
  as_user mkdir --mode 700 "$home/run"
  install --directory --mode 1777 /tmp/.X11-unix
}

start_session() {
  start xvfb as_user Xvfb :7 -screen 0 1024x768x24 -nolisten tcp -noreset
  start dbus as_user dbus-daemon --session --nofork --nopidfile --address="unix:path=$home/run/bus"
  wait_for "the X server" 30 as_user xdpyinfo
  wait_for "the session bus" 30 test -S "$home/run/bus"
  start openbox as_user openbox --sm-disable
  wait_for "the window manager" 30 as_user wmctrl -m
}

start_program() {
  start roomlattice as_user roomlattice
  program_pid=$!
  wait_for "the program" 30 as_user roomlatticectl current
  # During the tour other desktops are in front.
  wait_for "the end of the tour" 60 grep -q 'tour end' "$log_folder/roomlattice.log"
}

quit_program() {
  as_user roomlatticectl quit
  wait "$program_pid" || die "the program ended with status $?"
}

expect_name() {
  local line
  line=$(as_user roomlatticectl current --format='{name}')
  [[ $line == "$1" ]] || die "the desktop in front is called '$line', not '$1'"
}

expect_same() { diff "$trial/$1" "$trial/$2" || die "$3"; }

run_and_upgrade() {
  start_program
  as_user roomlatticectl rename Letters
  expect_name Letters
  dpkg --install "$trial/newer.deb"
  kill -0 "$program_pid" || die "the program ended when a newer version was installed"
  as_user roomlatticectl rename "Reading room"
  expect_name "Reading room"
  quit_program
  start_program
  expect_name "Reading room"
  quit_program
}

main() {
  local program_pid
  trap show_logs EXIT
  prepare
  files_of_system >"$trial/before"
  dpkg --install "$trial/roomlattice.deb"
  files_of_system >"$trial/installed"
  [[ $(comm -13 "$trial/before" "$trial/installed" | wc -l) -gt 20 ]] || die "hardly anything was installed"
  start_session
  run_and_upgrade
  sha256sum "$settings" >"$trial/settings-before"
  dpkg --purge roomlattice
  sha256sum "$settings" >"$trial/settings-after"
  stop_all
  files_of_system >"$trial/after"
  expect_same settings-before settings-after "the user's settings were touched"
  expect_same before after "the package left this behind, or took it away"
}

main
