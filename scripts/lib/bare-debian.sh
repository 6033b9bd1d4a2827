# shellcheck shell=bash
# A bare Debian in a folder, made with mmdebstrap. To be sourced after common.sh and packages.sh.

# unpack_debian SUITE FOLDER: with what a desktop without a screen needs. It is downloaded once.
unpack_debian() {
  local archive=$root/.cache/$1.tar tools=xvfb,openbox,dbus,wmctrl,x11-utils
  if [[ ! -f $archive ]]; then
    mkdir -p "$(dirname -- "$archive")"
    as_root mmdebstrap --format=tar --variant=apt --include="$tools" "$1" "$archive.new"
    as_root mv "$archive.new" "$archive"
  fi
  as_root tar --extract --file "$archive" --directory "$2"
}

# in_debian FOLDER COMMAND...: runs it there, as root. The project stands in /opt/roomlattice, with build folders of that
# Debian's own. In namespaces of its own nothing outlives the command.
in_debian() {
  as_root mkdir -p "$1/opt/roomlattice" "$1/var/roomlattice/build" "$1/var/roomlattice/cache"
  mkdir -p "$root/build" "$root/.cache"
  # The host's resolver, and the authorities that it trusts, for what apt and npm still fetch.
  as_root cp --dereference /etc/resolv.conf "$1/etc/resolv.conf"
  local authorities=/etc/ssl/certs/ca-certificates.crt
  if [[ -f $authorities ]]; then as_root cp --dereference "$authorities" "$1/var/roomlattice/authorities.crt"; fi
  # shellcheck disable=SC2016  # The inner shell's own.
  as_root env -i PATH="$PATH" HOME=/root LANG=C.UTF-8 NODE_EXTRA_CA_CERTS=/var/roomlattice/authorities.crt \
    unshare --mount --pid --fork --kill-child sh -ec '
    debian=$1 project=$2
    shift 2
    mount -t proc proc "$debian/proc"
    mount --rbind /dev "$debian/dev"
    mount --rbind /sys "$debian/sys"
    mount --bind "$project" "$debian/opt/roomlattice"
    mount --bind "$debian/var/roomlattice/build" "$debian/opt/roomlattice/build"
    mount --bind "$debian/var/roomlattice/cache" "$debian/opt/roomlattice/.cache"
    exec chroot "$debian" "$@"' sh "$1" "$root" "${@:2}"
}
