# SPDX-License-Identifier: MIT
# Shared by ./run, ./test and ./bench: what must be installed, and how the program is built.
set -u
TOP=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$TOP" || exit 1

BUILD_PACKAGES=(g++ cmake ninja-build pkg-config git qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-l10n-tools libgtest-dev libsqlite3-dev libpulse-dev libpipewire-0.3-dev libdbus-1-dev libx11-dev libxcb1-dev
  libxcb-keysyms1-dev libxcb-xfixes0-dev libxcb-shape0-dev libxcb-randr0-dev libxcb-res0-dev libgl-dev)
DESKTOP_PACKAGES=(python3 xvfb xserver-xorg-core xserver-xorg-video-dummy x11-utils x11-xserver-utils x11-xkb-utils
  xkb-data xdotool wmctrl imagemagick openbox xfwm4 picom tint2 xfce4-panel plank thunar dunst at-spi2-core
  dbus-daemon dbus-bin libglib2.0-bin pulseaudio pulseaudio-utils python3-xlib python3-gi
  gir1.2-atspi-2.0 python3-dbusmock xterm geany pcmanfm faketime fonts-dejavu-core fonts-inter fonts-noto-color-emoji
  qt6-qpa-plugins util-linux pipewire pipewire-bin desktop-file-utils mandoc)
FULL_PACKAGES=(firefox-esr marco mate-settings-daemon-common kwin-x11 libgl1-mesa-dri)  # only for ./test --full
PEER_PACKAGES=(xpad gnote tomboy-ng)

say() { printf '%s\n' "$*" >&2; }

# Installs what is missing of the packages named, asking once; without asking as root or in CI.
ensure_packages() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Missing Debian packages: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { say "Install them as root, then start again."; return 1; }
    as_root=(sudo)
    if [ -z "${CI:-}" ] && [ -t 0 ]; then
      read -r -p "Install them now? [Y/n] " answer
      case $answer in [nN]*) return 1 ;; esac
    fi
  fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq || say "The package lists could not be refreshed."
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    { say "apt-get could not install them."; return 1; }
}

# build_preset PRESET [TARGET...]: configures once, then builds; says where it is on one line a step.
build_preset() {
  local preset=$1; shift
  local options=()
  command -v ccache >/dev/null && [ -z "${CI:-}" ] && options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  [ -n "${options[*]:-}" ] && export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
  if [ ! -f "build/$preset/build.ninja" ]; then
    say "Configuring $preset ..."
    cmake --preset "$preset" "${options[@]}" >"build-$preset.log" 2>&1 ||
      { cat "build-$preset.log" >&2; rm -f "build-$preset.log"; return 1; }
    rm -f "build-$preset.log"
  fi
  say "Building $preset ..."
  local log="build/$preset/build.log"
  cmake --build "build/$preset" ${1:+--target "$@"} >"$log" 2>&1 || { grep -vE '^\[[0-9]+/' "$log" | tail -n 80 >&2; return 1; }
  ln -sfn "$preset/bin/tarnwick" build/tarnwick
}
