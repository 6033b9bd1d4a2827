# shellcheck shell=bash
# What every script of this folder shares. To be sourced.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd -P)

note() { printf '%s\n' "$*"; }

die() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# A command that fails where that is not expected is named.
set -o errtrace
trap 'printf "%s: failed: %s (%s, line %s)\n" "${0##*/}" "$BASH_COMMAND" "${BASH_SOURCE[0]##*/}" "$LINENO" >&2' ERR

# The usage text of a script is the comment at its head.
usage() { awk 'NR > 1 { if (!sub(/^# ?/, "")) exit; print }' "$0"; }

require_linux() {
  case $(uname -s) in
    Linux) ;;
    Darwin) die "this is for Linux; on a Mac there are scripts/run and scripts/test" ;;
    *) die "only Linux with X11 and macOS are supported, this is $(uname -s)" ;;
  esac
}

core_count() {
  if [[ $(uname -s) == Darwin ]]; then
    sysctl -n hw.ncpu
  else
    nproc
  fi
}

# Files of the project, new ones included, that match the given git path patterns: one path a line, from the root.
project_files() {
  local file
  # The owner of the checkout may be another user, as in a container.
  git -C "$root" -c safe.directory="$root" ls-files --cached --others --exclude-standard -- "$@" |
    sort -u | while IFS= read -r file; do
      # A tracked file may be deleted in the working tree.
      if [[ -f $root/$file ]]; then printf '%s\n' "$file"; fi
    done
}

# Configures and builds a CMake preset.
build_preset() {
  local preset=$1
  (cd "$root" && cmake --preset "$preset" && cmake --build --preset "$preset" --parallel "$(core_count)")
}

project_version() { sed -n 's/^project(Roomlattice VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt"; }
