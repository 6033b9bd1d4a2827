# shellcheck shell=bash
# The Debian packages the project needs, and their installation. To be sourced after common.sh.

debian_version() { sed -n 's/^VERSION_ID="\([0-9]*\).*/\1/p' /etc/os-release; }

# Prints the packages for a purpose.
packages_for() {
  case $1 in
    build)
      printf '%s\n' build-essential cmake ninja-build pkg-config nlohmann-json3-dev qt6-base-dev libsystemd-dev \
        libx11-dev libxcb1-dev libxcb-composite0-dev libxcb-ewmh-dev libxcb-render-util0-dev libxcb-render0-dev \
        libxcb-shape0-dev libxcb-xfixes0-dev libxcb-xinput-dev
      ;;
    # A desktop without a screen, and the tools that act on it from outside.
    desktop)
      printf '%s\n' xvfb openbox xfwm4 kwin-x11 picom hsetroot dbus xterm fonts-dejavu-core \
        xdotool xclip wmctrl x11-utils x11-xserver-utils xsettingsd imagemagick
      ;;
    # What the sanitizers are built with.
    sanitizers) printf '%s\n' clang lld libclang-rt-dev ;;
    # What stands for a Mac's frameworks when the macOS backend is tested: Debian 12's, which the supplement completes.
    # Without them that backend is left out.
    gnustep)
      if [[ $(debian_version) == 12 ]]; then
        printf '%s\n' clang libobjc-12-dev libgnustep-gui-dev gnustep-base-runtime gnustep-gui-runtime \
          gnustep-back0.29-cairo
      fi
      ;;
    # What makes the application for a Mac and compiles its tests, besides the compiler from npm. Node.js of another source
    # brings its own npm.
    mac)
      printf '%s\n' build-essential cmake ninja-build libgtest-dev libgmock-dev lld llvm libplist-utils python3 zip
      if ! command -v npm >/dev/null; then printf '%s\n' npm; fi
      ;;
    # What the Debian package is made and checked with.
    package) printf '%s\n' git dpkg-dev lintian appstream desktop-file-utils ;;
    # What the Debian package is tried with.
    packagetest) printf '%s\n' mmdebstrap debian-archive-keyring dpkg-dev util-linux ;;
    bench) printf '%s\n' libbenchmark-dev libxcb-damage0-dev libxcb-res0-dev ;;
    fuzz) printf '%s\n' clang lld libclang-rt-dev ;;
    # What the campaign of faults injects errors and delays with.
    faults) printf '%s\n' strace ;;
    # With the X server whose touchpad the tests move, and window managers that have their ways with some windows.
    test)
      printf '%s\n' libgtest-dev libgmock-dev at-spi2-core fluxbox i3-wm metacity marco mate-settings-daemon-common bspwm \
        xserver-xorg-core xserver-xorg-video-dummy xserver-xorg-dev xinput libxcb-res0-dev libxcb-xtest0-dev strace
      ;;
    # What scripts/window-managers tries the program with, and those that the test command has it tried under.
    trial)
      printf '%s\n' openbox metacity kwin-wayland xwayland libgl1-mesa-dri python3 python3-xlib python3-dbus python3-gi \
        gir1.2-gtk-3.0
      ;;
    # All that scripts/window-managers tries the program under and beside.
    windowmanagers)
      printf '%s\n' marco mate-settings-daemon-common icewm fluxbox i3-wm awesome bspwm gnome-shell \
        gnome-settings-daemon gnome-shell-extension-appindicator cinnamon xfce4-panel mate-panel lxqt-panel tint2 \
        polybar plasma-workspace plasma-desktop qtwayland5
      ;;
    check) printf '%s\n' git clang-format clang-tidy python3 shellcheck ;;
    *) die "no packages are known for $1" ;;
  esac
}

# Prints those of the given packages that are not installed.
missing_packages() {
  comm -23 <(printf '%s\n' "$@" | sort -u) \
    <({ dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true; } |
      sed -n 's/^installed //p' | sort -u)
}

as_root() {
  if [[ $(id -u) == 0 ]]; then
    "$@"
  elif [[ -t 0 ]]; then
    sudo "$@"
  else
    sudo --non-interactive "$@"
  fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 \
    "$@" </dev/null
}

# install_packages_for PURPOSE...: whatever of it is missing.
install_packages_for() {
  local purpose wanted missing
  mapfile -t wanted < <(for purpose in "$@"; do packages_for "$purpose"; done)
  if ! command -v dpkg-query >/dev/null; then
    note "This is not a Debian system; what is needed must be there already: ${wanted[*]}"
    return
  fi
  mapfile -t missing < <(missing_packages "${wanted[@]}")
  if [[ ${#missing[@]} == 0 ]]; then return; fi
  note "Installing ${missing[*]}"
  if [[ $(id -u) != 0 ]] && ! command -v sudo >/dev/null; then
    die "neither root nor sudo; please install these packages: ${missing[*]}"
  fi
  apt_get update || die "apt-get update failed"
  apt_get install --no-install-recommends "${missing[@]}" || die "could not install: ${missing[*]}"
}
