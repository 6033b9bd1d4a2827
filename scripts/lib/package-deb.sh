# shellcheck shell=bash
# The Debian package. To be sourced after common.sh and packages.sh.

# build_package: the preset `package`, compiled and linked as Debian does it.
build_package() {
  local flags
  export DEB_BUILD_MAINT_OPTIONS=hardening=+all
  flags=$(dpkg-buildflags --get CPPFLAGS)
  CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $flags" LDFLAGS=$(dpkg-buildflags --get LDFLAGS) build_preset package
}

# Prints what a package file of this version is called.
deb_file() { printf '%s\n' "$root/build/packages/roomlattice_$(project_version)_$(dpkg --print-architecture).deb"; }

# Leaves build/packages/roomlattice_VERSION_ARCH.deb and the symbols in roomlattice-dbgsym_VERSION_ARCH.deb, with no
# error that Debian's own tools find.
package_deb() {
  local deb
  require_linux
  install_packages_for build package
  # What is packed is readable to all, whatever the user's mask.
  umask 022
  cd "$root"
  build_package
  deb=$(deb_file)
  rm -f "${deb%/*}"/roomlattice*"${deb##*_}" "${deb%/*}"/roomlattice*.ddeb
  SOURCE_DATE_EPOCH=$(git -c safe.directory="$root" log -1 --format=%ct) cpack --config build/package/CPackConfig.cmake
  mend_symbols "${deb%/*}"/roomlattice-dbgsym_*.ddeb "${deb/roomlattice_/roomlattice-dbgsym_}"
  check_deb "$deb"
  note "$deb"
}

# mend_symbols MADE WANTED: CPack names the files of this package by where it made them, and gives it no documents.
mend_symbols() {
  local folder
  folder=$(mktemp --directory)
  chmod 755 "$folder"
  dpkg-deb --raw-extract "$1" "$folder"
  find "$folder/usr/lib/debug" -name '*.debug' -exec chmod 644 {} +
  (cd "$folder" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
  mkdir -p "$folder/usr/share/doc"
  ln -s roomlattice "$folder/usr/share/doc/roomlattice-dbgsym"
  sed -i '/^Package-Type:/d' "$folder/DEBIAN/control"
  dpkg-deb --root-owner-group --build "$folder" "$2" >/dev/null
  rm -r "$folder" "$1"
}

# From version 1 on the tool warns that there is no home page, which there is not; before, it does not know that warning.
check_metainfo() {
  appstreamcli validate --no-net --override=url-homepage-missing=info "$1" >/dev/null 2>&1 ||
    appstreamcli validate --no-net "$1"
}

# Ends in an error where Debian's tools find one.
check_deb() {
  local contents
  contents=$(mktemp --directory)
  dpkg-deb --extract "$1" "$contents"
  desktop-file-validate "$contents"/usr/share/applications/*.desktop
  check_metainfo "$contents"/usr/share/metainfo/*.metainfo.xml
  rm -r "$contents"
  lintian --allow-root --fail-on error "$1" "${1/roomlattice_/roomlattice-dbgsym_}"
}
