# Completion of roomlatticectl for bash.

_roomlatticectl_desktops() {
  roomlatticectl list --json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",\{0,1\}$/\1/p'
}

_roomlatticectl() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} name
  local commands="list current switch next previous rename labels menu preferences tour watch quit"
  local formats="polybar i3blocks i3bar genmon tint2 waybar lxqt"
  COMPREPLY=()
  case $previous in
    switch | rename)
      while IFS= read -r name; do
        if [[ $name == "$current"* ]]; then COMPREPLY+=("$(printf '%q' "$name")"); fi
      done < <(_roomlatticectl_desktops)
      return
      ;;
    labels)
      mapfile -t COMPREPLY < <(compgen -W "show hide" -- "$current")
      return
      ;;
    --format | =)
      current=${current#=}
      mapfile -t COMPREPLY < <(compgen -W "$formats" -- "$current")
      return
      ;;
  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "--json --format= --display= --help --version" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
  fi
}

complete -F _roomlatticectl roomlatticectl
