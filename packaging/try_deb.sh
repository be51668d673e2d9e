#!/usr/bin/env bash
# Tries the Debian packages in build/packages/ in a fresh root of this system's release, with
# nothing but what a desktop always has: installs them, goes an operator's way with the installed
# programs, removes and purges them, and looks for what they have left. The pictures of the way go
# into build/packages/pictures/. The status is 77 where no fresh root can be made; the last lines
# say why.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=$PWD/build/packages
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
debs=("$packages/brivon_${version}_"*.deb "$packages/brivon-virtual-panel_${version}_"*.deb)
for deb in "${debs[@]}"; do
  if [ ! -f "$deb" ]; then
    echo "The packages are not there: packaging/build_deb.sh builds them." >&2
    exit 1
  fi
done

no_root() {
  echo "No fresh root can be made here, so the packages were not tried: $1" >&2
  exit 77
}
# shellcheck disable=SC1091
release=$(. /etc/os-release && [ "$ID" = debian ] && echo "${VERSION_CODENAME:-}") ||
  no_root "this system is not Debian."
tools/install_missing.sh mmdebstrap || no_root "mmdebstrap is missing."

# What an operator's desktop has, and what the trial presses keys and looks with.
desktop=(openbox shared-mime-info xdg-utils file fonts-dejavu-core man-db)
hands=(xvfb xdotool x11-utils scrot libglib2.0-bin iproute2 jq)
# A plain user is the superuser of a name space of his own. What merely pretends that is no system
# to install programs in.
mode=root
[ "$(id -u)" -eq 0 ] || mode=unshare
# Where nothing may be mounted the root is made all the same, with nothing in /proc.
[ "$mode" != root ] || unshare --mount true 2>/dev/null || no_root "nothing may be mounted here."
include=$(IFS=, && echo "${desktop[*]},${hands[*]}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/trial/pictures" "$work/out"
cp packaging/trial/*.sh "${debs[@]}" "$work/trial/"
echo failed >"$work/trial/status"
cd "$work"

# shellcheck disable=SC2016 # $1 is the hook's own argument
# The hooks run in the finished root, one after the other; the trial's own result is in its status.
make_root_and_try() {
  timeout --foreground 1500 mmdebstrap --mode="$mode" --variant=apt --include="$include" \
    --aptopt='APT::Install-Recommends "false"' --dpkgopt=force-unsafe-io --format=null \
    --customize-hook='mkdir "$1/trial"' \
    --customize-hook='sync-in trial /trial' \
    --customize-hook='chroot "$1" test -e /proc/self/fd' \
    --customize-hook='echo "-- in a fresh root"' \
    --customize-hook="chroot \"\$1\" bash /trial/in_root.sh $version || true" \
    --customize-hook='copy-out /trial/status /trial/pictures out' \
    "$release" - </dev/null 2>&1
}

echo "Making a fresh root of $release ..."
# What is said until there is a root is only of interest where there is none.
make_root_and_try | tee says | sed -u -n '/^-- in a fresh root$/,$ { /^I: /!p }' || true
if ! grep -qx -e '-- in a fresh root' says; then
  tail -n 10 says >&2
  no_root "the lines above say why."
fi
mkdir -p "$packages/pictures"
cp out/pictures/*.png "$packages/pictures/" 2>/dev/null || true
if [ "$(cat out/status 2>/dev/null)" != ok ]; then
  echo "The packages have failed the trial." >&2
  exit 1
fi
echo "The packages have passed; the pictures are in $packages/pictures."
