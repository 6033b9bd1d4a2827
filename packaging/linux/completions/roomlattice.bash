# SPDX-License-Identifier: MIT
# bash completion of roomlattice.

_roomlattice() {
  local words='--help --version --recent-log --autostart --at-login'
  if [[ ${COMP_WORDS[COMP_CWORD - 1]} == --autostart ]]; then words='on off'; fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "${COMP_WORDS[COMP_CWORD]}")
}
complete -F _roomlattice roomlattice
