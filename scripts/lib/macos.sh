# shellcheck shell=bash
# What the commands do on a Mac, whose own bash is an old one. To be sourced after common.sh.

on_macos() { [[ $(uname -s) == Darwin ]]; }

require_macos_tools() {
  xcode-select --print-path >/dev/null 2>&1 || die "Apple's command line tools are missing: xcode-select --install"
  command -v cmake >/dev/null || die "CMake 3.25 or newer is missing, with Homebrew: brew install cmake"
}

# Builds and opens the application, as a user would: the permission for Accessibility is asked for in its own name and
# not in the terminal's.
run_on_macos() {
  require_macos_tools
  build_preset macos
  note "Roomlattice is running. To stop it, choose Quit in its menu."
  exec open -W "$root/build/macos/app/Roomlattice.app" --args "$@"
}

# test_on_macos REGEX: builds the application, and builds and runs the portable tests whose names match.
test_on_macos() {
  require_macos_tools
  build_preset macos
  build_preset macos-tests ||
    die "the tests need GoogleTest and nlohmann-json, with Homebrew: brew install googletest nlohmann-json"
  cd "$root"
  ctest --preset macos-tests --parallel "$(core_count)" --tests-regex "$1" --no-tests=error --no-label-summary
}
