# SPDX-License-Identifier: MIT
# fish completion of roomlatticectl.

function __roomlatticectl_names
    roomlatticectl list 2>/dev/null | string replace -rf '^[* ] [0-9]+ *(.*[^ ]) +#[0-9a-f]{6}  .*' '$1'
end

complete -c roomlatticectl -f
complete -c roomlatticectl -s h -l help -d 'Print the commands and options'
complete -c roomlatticectl -l version -d 'Print the version'
complete -c roomlatticectl -l display -x -d 'Mean the Roomlattice of another X11 display'
complete -c roomlatticectl -n '__fish_seen_subcommand_from list current watch' -l json -d 'Print JSON'
complete -c roomlatticectl -n '__fish_seen_subcommand_from current watch' -l format -x \
    -a 'polybar i3blocks i3bar genmon tint2 waybar lxqt' -d 'Print a line for a bar'
complete -c roomlatticectl -n __fish_use_subcommand -a list -d 'Print all desktops'
complete -c roomlatticectl -n __fish_use_subcommand -a current -d 'Print the desktop in front'
complete -c roomlatticectl -n __fish_use_subcommand -a switch -d 'Go to a desktop'
complete -c roomlatticectl -n __fish_use_subcommand -a next -d 'Go to the next desktop'
complete -c roomlatticectl -n __fish_use_subcommand -a previous -d 'Go to the desktop before'
complete -c roomlatticectl -n __fish_use_subcommand -a rename -d 'Name a desktop'
complete -c roomlatticectl -n __fish_use_subcommand -a labels -d 'Show or hide the labels'
complete -c roomlatticectl -n __fish_use_subcommand -a menu -d 'Open the menu'
complete -c roomlatticectl -n __fish_use_subcommand -a preferences -d 'Open the preferences'
complete -c roomlatticectl -n __fish_use_subcommand -a tour -d 'Visit every desktop once'
complete -c roomlatticectl -n __fish_use_subcommand -a watch -d 'Print a line for every change'
complete -c roomlatticectl -n __fish_use_subcommand -a quit -d 'End Roomlattice'
complete -c roomlatticectl -n '__fish_seen_subcommand_from switch rename' -a '(__roomlatticectl_names)' -d Desktop
complete -c roomlatticectl -n '__fish_seen_subcommand_from labels' -a 'show hide'
