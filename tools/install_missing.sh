#!/usr/bin/env bash
# Installs what Brivon is built, tested and run with, as far as it is missing, from Debian's own
# packages. Asks nothing.
set -euo pipefail

packages=(
  g++ cmake ninja-build
  qt6-base-dev qt6-serialport-dev libgl-dev
  libgtest-dev libbenchmark-dev
  libfreetype-dev xfonts-base
  xvfb xauth libsm-dev fonts-dejavu-core fonts-liberation
  "$@"
)

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
