#!/usr/bin/env bash
# Tries the portable folder that build_portable.sh has made in a fresh Debian with nothing but an X server and
# a font: there its programs start for a plain user, a page goes to the virtual panel, and nothing is
# written elsewhere. Takes Debian's release (bookworm unless told otherwise). The pictures of the
# windows lie in build/portable_pictures/. Exits with 77 where no fresh system can be made.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [ "$(id -u)" -ne 0 ]; then
  echo "Making a fresh system takes the rights of root; the portable folder was not tried." >&2
  exit 77
fi
archives=(build/packages/brivon-*-linux-"$(uname -m)".tar.xz)
[ -e "${archives[0]}" ] || { echo "First run packaging/build_portable.sh" >&2 && exit 1; }
tools/install_missing.sh mmdebstrap xdotool openbox imagemagick
work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
# A plain user must come through to what lies below.
chmod 755 "$work"
if ! mmdebstrap --quiet --variant=minbase --dpkgopt=force-unsafe-io \
  --include=xserver-xorg-core,xvfb,fontconfig,fonts-dejavu-core "${1:-bookworm}" "$work/root" ||
  ! unshare --mount true; then
  echo "A fresh system cannot be made here; the portable folder was not tried." >&2
  exit 77
fi
mkdir -p build/portable_pictures
# What is mounted there goes away with it.
unshare --mount packaging/portable/try_in.sh "$work/root" "${archives[0]}" build/portable_pictures
