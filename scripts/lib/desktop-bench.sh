# shellcheck shell=bash
# The program on desktops without a screen, and panels that do the same beside it. To be sourced after common.sh.

# shellcheck source=scripts/lib/processes.sh
. "$root/scripts/lib/processes.sh"
# shellcheck source=scripts/demo/desktop.sh
. "$root/scripts/demo/desktop.sh"

bench_folder=$root/build/desktopbench
meter=$bench_folder/benchmarks/roomlattice_desktop_meter
measured_program=$bench_folder/app/roomlattice
log_folder=$root/build/desktop-bench-logs
without_labels='{ "ShowSignInSwipeMode": false }'

# measure DESKTOPS COMPOSITOR PARTS COMMAND...: the meter's figures, on a desktop that is made for it and goes again.
measure() {
  desktop_count=$1
  local compositor=$2 parts=$3 server
  shift 3
  (
    trap stop_desktop EXIT
    trap 'exit 130' INT TERM HUP PIPE
    desktop_folder=$(mktemp -d /tmp/roomlattice-bench.XXXXXX)
    use_private_folders
    start_x_server
    server=${started_pids[0]}
    start_session_bus
    start_window_manager
    if [[ $compositor == picom ]]; then start_compositor; fi
    write_panel_settings
    if [[ $parts == *f* ]]; then start load sh -c 'while :; do :; done'; fi
    "$meter" "$server" "$parts" "$@"
  )
}

# measure_program DESKTOPS COMPOSITOR PARTS SETTINGS: the same with the program, with SETTINGS, a JSON object.
measure_program() {
  local settings=$4
  # shellcheck disable=SC2016  # The program's own shell expands it.
  measure "$1" "$2" "t$3" sh -c \
    'mkdir -p "$XDG_CONFIG_HOME/roomlattice" && printf "%s" "$1" >"$XDG_CONFIG_HOME/roomlattice/settings.json" && exec "$2"' \
    sh "$settings" "$measured_program"
}

# Each shows the desktops by their names, the one in front in another way, and nothing else.
write_panel_settings() {
  local folder=${XDG_RUNTIME_DIR%/*}
  mkdir -p "$XDG_CONFIG_HOME/lxqt"
  cat >"$folder/tint2rc" <<'INI'
panel_items = T
panel_position = top center horizontal
panel_size = 100% 24
panel_dock = 0
wm_menu = 0
taskbar_mode = multi_desktop
taskbar_name = 1
taskbar_name_font = sans 9
task_text = 0
task_icon = 0
INI
  cat >"$folder/polybar.ini" <<'INI'
[bar/desktops]
width = 100%
height = 24
font-0 = sans:size=9
modules-left = desktops
[module/desktops]
type = internal/xworkspaces
enable-click = false
enable-scroll = false
label-active-background = #555555
INI
  cat >"$XDG_CONFIG_HOME/lxqt/panel.conf" <<'INI'
panels=panel1
[panel1]
plugins=desktopswitch
position=Top
panelSize=24
[desktopswitch]
type=desktopswitch
labelType=1
INI
}

# The settings lie beside the session's own folders.
panel_command() {
  case $1 in
    tint2) printf '%s\0' sh -c "exec tint2 -c \"\${XDG_RUNTIME_DIR%/*}/tint2rc\"" ;;
    polybar) printf '%s\0' sh -c "exec polybar -q -c \"\${XDG_RUNTIME_DIR%/*}/polybar.ini\" desktops" ;;
    lxqt-panel) printf '%s\0' lxqt-panel ;;
  esac
}

# table_row NAME: a line of the table from figures on standard input.
table_row() {
  awk -v name="$1" '
    { figure[$1] = $2 }
    function show(format, key) { return key in figure ? sprintf(format, figure[key]) : "-" }
    END {
      printf "%-34s %7s %7s %7s %5s %7s %7s %5s %8s %8s %8s %8s\n", name, show("%.0f", "start"),
        "memory_kib" in figure ? sprintf("%.1f", figure["memory_kib"] / 1024) : "-", show("%.1f", "idle_ms"),
        show("%d", "idle_wakeups"), show("%.2f", "picture_median"), show("%.2f", "picture_p95"),
        show("%.1f", "drawings"), show("%.0f", "own_quick"), show("%.0f", "server_quick"), show("%.0f", "own_slow"),
        show("%.0f", "server_slow")
    }'
}

table_head() {
  printf '%-34s %7s %7s %13s %15s %5s %17s %17s\n' '' start, memory, 'idling 30 s' 'new desktop is' draw- \
    '100 quick' '100 slow'
  printf '%-34s %7s %7s %7s %5s %7s %7s %5s %8s %8s %8s %8s\n' '' ms MiB 'CPU ms' wakes 'seen ms' 'p95' ings own server own server
}

compare_panels() {
  local panel command
  heading "Nine desktops, no compositor; processor time of 100 switches in ms"
  table_head
  for panel in tint2 polybar lxqt-panel; do
    if ! command -v "$panel" >/dev/null; then continue; fi
    mapfile -d '' -t command < <(panel_command "$panel")
    measure 9 none pcmi "${command[@]}" | table_row "$panel"
  done
  measure_program 9 none pcmi "$without_labels" | table_row "Roomlattice, labels off"
  measure_program 9 none pcmi '{}' | table_row "Roomlattice"
}

compare_desktops() {
  local compositor count settings
  for compositor in none picom; do
    heading "By the number of desktops, compositor: $compositor"
    table_head
    measure 9 "$compositor" c | table_row "nobody, 9"
    for settings in "$without_labels" '{}'; do
      # What is drawn for a compositor is labels.
      if [[ $compositor == picom && $settings != '{}' ]]; then continue; fi
      for count in 4 16 64; do
        measure_program "$count" "$compositor" pcm "$settings" >"$log_folder/figures-$count"
        table_row "$count$([[ $settings == '{}' ]] || echo ', labels off')" <"$log_folder/figures-$count"
      done
      memory_growth
    done
  done
}

# From the last figures for 4 and 64 desktops.
memory_growth() {
  awk '{ change[$1] += NR == FNR ? -$2 : $2 }
    END { printf "a further desktop: %.1f KiB in the program, %.1f KiB of pixmaps and %.1f KiB in all in the server\n",
      change["memory_kib"] / 60, change["server_pixmaps_kib"] / 60, change["server_memory_kib"] / 60 }' \
    "$log_folder/figures-4" "$log_folder/figures-64"
}

show_fades() {
  heading "Fades with picom, while another program uses a core"
  measure_program 4 picom f '{}' |
    awk '{ figure[$1] = $2 }
      END { printf "%.1f steps a second, 95 in 100 within %.0f ms of the usual interval\n", figure["fade_rate"],
        figure["fade_unevenness"] }'
}

bench_desktop() {
  mkdir -p "$log_folder"
  note "Machine load: $(cut -d ' ' -f 1-3 /proc/loadavg), $(core_count) processors"
  compare_panels
  compare_desktops
  show_fades
}
