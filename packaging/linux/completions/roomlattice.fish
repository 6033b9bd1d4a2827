# SPDX-License-Identifier: MIT
# fish completion of roomlattice.

complete -c roomlattice -f
complete -c roomlattice -s h -l help -d 'Print what the program is'
complete -c roomlattice -l version -d 'Print the version'
complete -c roomlattice -l recent-log -d 'Print what was logged in the last ten minutes'
complete -c roomlattice -l autostart -x -a 'on off' -d 'Start with the session'
complete -c roomlattice -l at-login -d 'Wait for the window manager and a panel first'
