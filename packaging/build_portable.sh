#!/usr/bin/env bash
# Makes build/packages/brivon-VERSION-linux-ARCH.tar.xz, from the sources as they were committed last: a
# folder with the programs and every library that a Debian 12 desktop or a later one may lack, which
# runs from anywhere. Two builds of the same sources on the same system have the same bytes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if ! command -v dpkg-query >/dev/null; then
  echo "The libraries and their licences are taken from Debian's packages; this system has none." >&2
  exit 1
fi
# The C library, the compiler's and the desktop's are those of where the folder starts, and older ones
# than here would not do.
# shellcheck disable=SC1091
if [ "$(. /etc/os-release && echo "$ID ${VERSION_ID:-}")" != "debian 12" ]; then
  echo "This system is not Debian 12: what is made here may start only on systems that are as new." >&2
fi
tools/install_missing.sh git xz-utils binutils
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=brivon-$version-linux-$(uname -m)
# Two builds of the same sources say the same time, whenever they are made.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
packages=$PWD/build/packages
# The compiler's options take no path with a blank, which that of the sources may have.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Where there is a compiler's cache, it knows the sources again in any folder.
export CCACHE_BASEDIR=$work
folder=$work/$name
mkdir -p "$work/source" "$folder" "$packages"
git archive HEAD | tar -x -C "$work/source"

# A RUNPATH would not be searched for what libraries and plug-ins themselves need.
cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF \
  -DBRIVON_VIRTUAL_PANEL=ON -DBRIVON_CTL=ON "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$work=." \
  -DCMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags \
  "-DCMAKE_INSTALL_RPATH=\$ORIGIN/lib" -DCMAKE_BUILD_WITH_INSTALL_RPATH=ON >/dev/null
cmake --build "$work/build" --target brivon virtual_panel brivonctl manual
[ -e "$work/build/manual/manual.html" ] || { echo "There is no manual." >&2 && exit 1; }

for program in src/app/brivon virtual_panel/virtual_panel brivonctl/brivonctl; do
  strip -o "$folder/$(basename "$program")" "$work/build/$program"
done
cp -R "$work/build/manual" "$work/source/samples/." "$folder"
cp "$work/source"/packaging/portable/README.txt "$work/source"/{LICENSE,LICENSES.md,CHANGELOG.md} "$folder"
"$work/source/packaging/portable/add_libraries.sh" "$folder"

(
  cd "$work"
  find "$name" -type d -exec chmod 755 {} +
  find "$name" -type f -exec chmod go=u,go-w {} +
  tar --sort=name --format=gnu --owner=0 --group=0 --numeric-owner --mtime="@$SOURCE_DATE_EPOCH" \
    -c "$name" | xz -T1 -6 >"$name.tar.xz"
)
mv "$work/$name.tar.xz" "$packages"
ls -l "$packages/$name.tar.xz"
