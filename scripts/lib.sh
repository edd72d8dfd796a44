# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# What the scripts share: the packages they need, and how they build. To be sourced.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# Debian packages, one need a line.
packages='
build   cmake ninja-build g++ ccache git python3 qt6-base-dev qt6-svg-dev libqscintilla2-qt6-dev libcli11-dev libdtl-dev libgtest-dev
run     libqt6svg6 fonts-dejavu-core xvfb openbox
test    python3 fonts-dejavu-core libdbd-xbase-perl python3-dbf python3-dbfread desktop-file-utils appstream
package dpkg-dev file fakeroot xdotool
memcheck valgrind
peers   ripgrep scite geany kate xdotool python3
fuzz    clang libclang-rt-14-dev
format  clang-format git
lint    clang clang-format clang-tidy shellcheck desktop-file-utils appstream git
windows g++-mingw-w64-x86-64-posix wine wine64 googletest
windows-package qt6-base-dev-tools qmake6 dpkg-dev make icoutils nsis zip
'

say() { printf '%s\n' "-- $*"; }

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

packages_for() {
  local need names
  while read -r need names; do
    # shellcheck disable=SC2086  # one package a line
    [[ -n $need && " $* " == *" $need "* ]] && printf '%s\n' $names
  done <<<"$packages"
  return 0
}

missing_packages() {
  local installed
  installed=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' 2>/dev/null | sed -n 's/^installed //p')
  packages_for "$@" | sort -u | grep --invert-match --line-regexp --fixed-strings --file=<(printf '%s\n' "$installed") || true
}

as_root() {
  if ((EUID == 0)); then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "This needs root or sudo: $*"
  fi
}

# need <need>... : installs the packages of these needs that are not there yet.
need() {
  if ! command -v apt-get >/dev/null; then
    say "No apt here; these Debian packages, under your system's names, must be there: $(packages_for "$@" | xargs)"
    return
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]} == 0)) && return
  say "Installing ${missing[*]}"
  as_root apt-get update --quiet=2
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --quiet=2 --no-install-recommends "${missing[@]}"
}

# configure <preset> [cmake arguments]: only when there is nothing to build on yet, or something to set.
configure() {
  local preset=$1 log=build/configure.log
  shift
  [[ -f build/$preset/build.ninja && $# -eq 0 ]] && return
  say "Configuring $preset"
  mkdir -p build
  cmake --preset "$preset" "$@" >"$log" 2>&1 || {
    cat "$log" >&2
    fail "Configuring failed."
  }
}

# build <preset> [target]...
build() {
  local preset=$1
  shift
  say "Building $preset"
  cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

# copy_game <folder>: kept when it is there already, with whatever was edited in it.
copy_game() {
  [[ -d $1 ]] && return
  say "Copying the sample game folder to ${1#"$root"/}"
  rm -rf "$1.new"
  mkdir -p "$(dirname "$1")"
  cp -r sample/game "$1.new"
  chmod -R u+w "$1.new"
  mv "$1.new" "$1"
}

# settings_text <game folder>: Korvane writes paths with backslashes, and its settings file doubles each.
settings_text() {
  local path=${1//\//\\\\}
  cat <<END
[Paths]
CCPath="${path//\"/\\\"}"

[Settings]
MenuiFont=DejaVu Sans
MenuiFontSize=10
MenuiBold=False
MenuiItalic=False
MenuiUnderline=False
MenuiStrikeout=False
END
}

# use_home <folder> <game folder>: settings and kept versions go below the folder, never to the user's own.
use_home() {
  export XDG_CONFIG_HOME=$1/config XDG_DATA_HOME=$1/data
  local file="$XDG_CONFIG_HOME/Ferncastle Software/Command And Conquer Generals Korvane.ini"
  [[ -e $file ]] && return
  mkdir -p "$(dirname "$file")" "$XDG_DATA_HOME"
  settings_text "$2" >"$file"
}

# The server picks a free number by itself. A window manager belongs to it: windows get frames, focus and places
# as on a desktop.
on_virtual_display() {
  local answer number server
  exec {answer}< <(exec Xvfb -displayfd 1 -screen 0 1600x1200x24 -nolisten tcp 2>/dev/null)
  server=$!
  read -r -u "$answer" number || fail "No virtual display could be started."
  export DISPLAY=:$number QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY
  openbox &>/dev/null &
  # shellcheck disable=SC2064  # the numbers of now
  trap "kill $! $server" EXIT
  "$@"
}
