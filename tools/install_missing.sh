#!/usr/bin/env bash
# Installs what Brivon is built, tested and run with, as far as it is missing, from Debian's own
# packages. Asks nothing. Takes the names of further packages. On a system with other packages it
# installs nothing and names the programs that are missing; the libraries are named by CMake, which
# looks for them next.
set -euo pipefail

packages=(
  g++ cmake ninja-build cmark-gfm
  qt6-base-dev qt6-serialport-dev qt6-translations-l10n libgl-dev libcli11-dev
  fonts-dejavu-core fonts-liberation
)
if [ "${1:-}" = --tests ]; then
  shift
  packages+=(libgtest-dev libgmock-dev libbenchmark-dev libboost-dev libsm-dev libfreetype-dev
    xfonts-base xvfb desktop-file-utils appstream shared-mime-info libglib2.0-bin)
fi
packages+=("$@")

# Says which programs of the packages are not there, by the names that they have on every system.
name_missing_programs() {
  local package programs name
  local missing=()
  while IFS=: read -r package programs name; do
    [[ " ${packages[*]} " == *" $package "* ]] || continue
    # shellcheck disable=SC2086 # any one of the programs will do
    command -v $programs >/dev/null || missing+=("$name")
  done <<PROGRAMS
g++:${CXX:-c++ g++ clang++}:a C++20 compiler, such as GCC or Clang
cmake:cmake:CMake 3.25
ninja-build:ninja ninja-build:Ninja
xvfb:xvfb-run:Xvfb and xvfb-run
xauth:xauth:xauth
desktop-file-utils:desktop-file-validate:desktop-file-validate
appstream:appstreamcli:appstreamcli
shared-mime-info:update-mime-database:update-mime-database
libglib2.0-bin:gio:gio
clang:clang++:Clang
llvm:llvm-symbolizer:llvm-symbolizer
clang-format:clang-format:clang-format of Clang 14
clang-tidy:clang-tidy:clang-tidy of Clang 14
gcovr:gcovr:gcovr
valgrind:valgrind:Valgrind
dpkg-dev:dpkg-buildpackage:dpkg-buildpackage
debhelper:dh:debhelper
lintian:lintian:lintian
mmdebstrap:mmdebstrap:mmdebstrap
PROGRAMS
  [ ${#missing[@]} -eq 0 ] && return
  echo "This system has no Debian packages, so nothing was installed. What is missing:" >&2
  printf '  %s\n' "${missing[@]}" >&2
  return 1
}

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  name_missing_programs
  exit
fi

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$state" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! sudo -n true 2>/dev/null; then
    echo "These Debian packages are missing and this user may not install them:" >&2
    echo "  ${missing[*]}" >&2
    echo "Have them installed by the system's administrator:" >&2
    echo "  apt-get install ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo -n)
fi

install() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}

echo "Installing ${missing[*]} ..."
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# A machine that was never updated has no list of packages, and an old list names old files.
if ! install >"$log" 2>&1; then
  if ! { "${as_root[@]}" apt-get update -q && install; } >"$log" 2>&1; then
    cat "$log" >&2
    echo "The packages could not be installed; the lines above say why." >&2
    exit 1
  fi
fi
