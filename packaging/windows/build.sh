#!/usr/bin/env bash
# Makes build/packages/brivon-VERSION-windows-x86_64.zip, from the sources as they were committed
# last: a folder with the programs and every library that they bring along, which runs from
# anywhere. The first run makes the toolkit too (packaging/windows/toolkit.sh), which takes an hour or
# more.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

packaging/windows/toolkit.sh
tools/install_missing.sh git cmark-gfm
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=brivon-$version-windows-x86_64
# Two builds of the same sources say the same time, whenever they are made.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
# The compiler's options take no path with a blank, which that of the sources may have.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Where there is a compiler's cache, it knows the sources again in any folder.
export CCACHE_BASEDIR=$work
folder=$work/$name
mkdir -p "$work/source" build/packages
git archive HEAD | tar -x -C "$work/source"

packaging/windows/configure.sh "$work/source" "$work/build" -DCMAKE_BUILD_TYPE=Release \
  -DBUILD_TESTING=OFF "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$work=."
cmake --build "$work/build" --target brivon virtual_panel brivonctl manual
"$work/source/packaging/windows/folder.sh" "$work/source" "$work/build" "$folder"

(
  cd "$work"
  find "$name" -type f | LC_ALL=C sort >files
  # The archive holds local times.
  TZ=UTC cmake -E tar cf "$name.zip" --format=zip --files-from=files \
    "--mtime=$(date -u -d "@$SOURCE_DATE_EPOCH" '+%Y-%m-%d %H:%M:%S UTC')"
)
mv "$work/$name.zip" build/packages/
ls -l "build/packages/$name.zip"
