# SPDX-License-Identifier: MIT
# bash completion of roomlatticectl.

_roomlatticectl_formats='polybar i3blocks i3bar genmon tint2 waybar lxqt'

# The names of the desktops that can be switched to, one a line.
_roomlatticectl_names() {
  roomlatticectl list 2>/dev/null | sed -n 's/^[* ] [0-9][0-9]* *\(.*[^ ]\)  *#[0-9a-f]\{6\}  .*/\1/p'
}

_roomlatticectl_complete_name() {
  local name
  while IFS= read -r name; do
    if [[ $name == "$1"* ]]; then COMPREPLY+=("$(printf '%q' "$name")"); fi
  done < <(_roomlatticectl_names)
}

# The words that may follow a command.
_roomlatticectl_words_after() {
  case $1 in
    '') echo 'list current switch next previous rename labels menu preferences tour watch quit' \
      '--json --format --display --help --version' ;;
    labels) echo 'show hide' ;;
    list) echo '--json' ;;
    current | watch) echo '--json --format' ;;
  esac
}

_roomlatticectl() {
  local current=${COMP_WORDS[COMP_CWORD]} command='' word
  COMPREPLY=()
  # "=" is a word of its own here.
  if [[ " ${COMP_WORDS[COMP_CWORD - 1]} ${COMP_WORDS[COMP_CWORD - 2]-} " == *' --format '* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$_roomlatticectl_formats" -- "${current#=}")
    return
  fi
  for word in "${COMP_WORDS[@]:1:COMP_CWORD - 1}"; do
    if [[ -z $command && $word != -* ]]; then command=$word; fi
  done
  if [[ $command == switch || $command == rename ]]; then
    _roomlatticectl_complete_name "${current//\\/}"
  else
    mapfile -t COMPREPLY < <(compgen -W "$(_roomlatticectl_words_after "$command")" -- "$current")
  fi
}
complete -F _roomlatticectl roomlatticectl
