#!/usr/bin/env bash
# Builds the Debian packages "brivon" and "brivon-virtual-panel" into build/packages/, from the
# sources as they were committed last, and lets lintian read them.
#
#   packaging/build_deb.sh          builds them
#   packaging/build_deb.sh --again  builds them once more, in another folder and with other
#                                   settings, and says whether the packages in build/packages/,
#                                   which must be of the same commit, have the same bytes
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=$PWD/build/packages
tools/install_missing.sh git build-essential dpkg-dev debhelper lintian
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# Two builds of the same sources say the same time, whenever they are made.
commit=$(git rev-parse HEAD)
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct "$commit")
export SOURCE_DATE_EPOCH
# What the packages in build/packages/ were built from.
built_from=$packages/brivon_${version}_commit.txt
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# build FOLDER: lays the sources out in that folder of the work's, and builds beside it.
build() {
  local sources=$work/$1
  mkdir -p "$sources"
  git archive "$commit" | tar -x -C "$sources"
  mv "$sources/packaging/debian" "$sources/debian"
  cat >"$sources/debian/changelog" <<CHANGES
brivon ($version) unstable; urgency=medium

  * Version $version.

 -- The Brivon developers <developers@brivon.org>  $(LC_ALL=C date -R -u -d "@$SOURCE_DATE_EPOCH")
CHANGES
  (cd "$sources" && dpkg-buildpackage -b -us -uc "-j$(nproc)")
}

# The names of the packages in a folder, each with a sum of its bytes.
sums() { (cd "$1" && sha256sum -- *.deb); }

case ${1:-} in
  '')
    build "brivon-$version"
    mkdir -p "$packages"
    # What else is built there stays.
    rm -f "$packages"/brivon{,-*}_*.{deb,ddeb,buildinfo,changes} "$packages"/brivon_*_commit.txt
    mv "$work"/*.deb "$work"/*.buildinfo "$work"/*.changes "$packages"
    echo "$commit" >"$built_from"
    lintian --fail-on error,warning --tag-display-limit 0 --info "$packages"/*.changes
    ls -l "$packages"
    ;;
  --again)
    if [ "$(cat "$built_from" 2>/dev/null)" != "$commit" ]; then
      echo "The packages in build/packages/ are not of what was committed last:" \
        "packaging/build_deb.sh builds them." >&2
      exit 1
    fi
    sums "$packages" >"$work/first"
    # Compiled anew, whatever a compiler's cache holds.
    (
      umask 027
      export CCACHE_RECACHE=1 TZ=Asia/Kathmandu LC_ALL=C HOME="$work/home"
      build "another_folder/sources"
    )
    sums "$work/another_folder" >"$work/second"
    diff "$work/first" "$work/second"
    echo "Both builds are the same:"
    cat "$work/first"
    ;;
  *)
    echo "usage: packaging/build_deb.sh [--again]" >&2
    exit 2
    ;;
esac
