#!/usr/bin/env bash
# Builds the Debian packages "brivon" and "brivon-virtual-panel" into build/packages/, from the
# sources as they were committed last, and lets lintian read them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/install_missing.sh dpkg-dev debhelper fakeroot lintian
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# Two builds of the same sources say the same time, whenever they are made.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
packages=$PWD/build/packages
rm -rf "$packages"
mkdir -p "$packages"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sources=$work/brivon-$version
git archive --prefix="brivon-$version/" HEAD | tar -x -C "$work"
mv "$sources/packaging/debian" "$sources/debian"
cat >"$sources/debian/changelog" <<CHANGES
brivon ($version) unstable; urgency=medium

  * Version $version; CHANGELOG.md says what has changed.

 -- The Brivon developers <developers@brivon.org>  $(date -R -u -d "@$SOURCE_DATE_EPOCH")
CHANGES
(cd "$sources" && dpkg-buildpackage -b -us -uc -j2)
mv "$work"/*.deb "$work"/*.buildinfo "$work"/*.changes "$packages"
lintian --fail-on error,warning --tag-display-limit 0 --info "$packages"/*.changes
ls -l "$packages"
