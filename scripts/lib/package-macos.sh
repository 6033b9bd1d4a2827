# shellcheck shell=bash
# Roomlattice.app and its release file, on Linux or a Mac. To be sourced after common.sh, macos.sh and packages.sh.

# mac_app PRESET: prints where the application is that build_mac_app makes.
mac_app() { printf '%s\n' "$root/build/$1/app/Roomlattice.app"; }

mac_preset() { if on_macos; then echo macos; else echo macos-cross; fi; }

install_mac_compiler() { "$root/packaging/macos/compiler/install" "$root/.cache/mac-compiler"; }

# build_mac_app PRESET. On Linux the static analyzer reads the backend with it.
build_mac_app() {
  if on_macos; then
    require_macos_tools
  else
    install_packages_for mac
    install_mac_compiler
  fi
  build_preset "$1"
}

# Whether the application is what a Mac expects, and whether that check sees what is wrong. Made on Linux, as it is quickest.
check_mac_app() {
  build_mac_app macos-check
  "$root/packaging/macos/check-app-test" "$(mac_app macos-check)"
}

# Leaves build/packages/Roomlattice-VERSION-macOS.zip.
package_macos() {
  local preset app zip
  preset=$(mac_preset)
  build_mac_app "$preset"
  app=$(mac_app "$preset")
  zip=$root/build/packages/Roomlattice-$(project_version)-macOS.zip
  mkdir -p "$(dirname -- "$zip")"
  rm -f "$zip"
  if on_macos; then
    ditto -c -k --keepParent "$app" "$zip"
  else
    "$root/packaging/macos/check-app" "$app"
    (cd "$(dirname -- "$app")" && zip --quiet --recurse-paths --symlinks -X "$zip" "$(basename -- "$app")")
  fi
  note "$zip"
}
