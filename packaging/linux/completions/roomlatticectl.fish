# Completion of roomlatticectl for fish.

function __roomlatticectl_desktops
    roomlatticectl list --json 2>/dev/null | string match --regex --groups-only '^ *"name": "(.*)",?$'
end

set -l commands list current switch next previous rename labels menu preferences tour watch quit
complete -c roomlatticectl -f
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a list -d 'print all desktops'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a current -d 'print the desktop in front'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a switch -d 'go to a desktop'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a next -d 'go to the next desktop'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a previous -d 'go to the desktop before'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a rename -d 'name a desktop'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a labels -d 'show or hide the labels'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a menu -d 'open the menu'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a preferences -d 'open the preferences'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a tour -d 'visit every desktop once'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a watch -d 'print a line for every change'
complete -c roomlatticectl -n "not __fish_seen_subcommand_from $commands" -a quit -d 'end Roomlattice'
complete -c roomlatticectl -n '__fish_seen_subcommand_from switch rename' -a '(__roomlatticectl_desktops)'
complete -c roomlatticectl -n '__fish_seen_subcommand_from labels' -a 'show hide'
complete -c roomlatticectl -n '__fish_seen_subcommand_from list current watch' -l json -d 'print JSON'
complete -c roomlatticectl -n '__fish_seen_subcommand_from current watch' -l format -x \
    -a 'polybar i3blocks i3bar genmon tint2 waybar lxqt' -d 'print the desktop in front for a bar'
complete -c roomlatticectl -l display -x -d 'mean the Roomlattice of another X11 display'
complete -c roomlatticectl -l help -d 'print a summary'
complete -c roomlatticectl -l version -d 'print the version'
