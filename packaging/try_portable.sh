#!/usr/bin/env bash
# Tries the portable folder that build_portable.sh has made in a fresh Debian with nothing but an X server and
# a font: there its programs start for a plain user, a page goes to the virtual panel, and nothing is
# written elsewhere. Takes Debian's release (bookworm unless told otherwise). The pictures of the
# windows lie in build/portable_pictures/. Exits with 77 where no fresh system can be made.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
archive=build/packages/brivon-$version-linux-$(uname -m).tar.xz
[ -e "$archive" ] || { echo "First run packaging/build_portable.sh" >&2 && exit 1; }
not_tried() {
  echo "$1; the portable folder was not tried." >&2
  exit 77
}
[ "$(id -u)" -eq 0 ] || not_tried "Making a fresh system takes the rights of root"
unshare --mount true 2>/dev/null || not_tried "Nothing may be mounted here"
tools/install_missing.sh mmdebstrap xdotool openbox imagemagick binutils xz-utils ||
  not_tried "What makes and tries a fresh system is missing"
work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
# A plain user must come through to what lies below.
chmod 755 "$work"
mmdebstrap --quiet --variant=minbase --dpkgopt=force-unsafe-io \
  --include=xserver-xorg-core,xvfb,fontconfig,fonts-dejavu-core "${1:-bookworm}" "$work/root" ||
  not_tried "A fresh system cannot be made here"
mkdir -p build/portable_pictures
# What is mounted there goes away with it.
unshare --mount packaging/portable/try_in.sh "$work/root" "$archive" build/portable_pictures
