#!/usr/bin/env bash
# Makes what the programs are built with for Windows: the toolkit, from Debian's own source package
# of the version that is installed here, and beside it the headers and the test library that Debian
# has for every system. Takes an hour or more the first time. All of it stands in a cache outside
# the tree, and a second run finds it there. Prints the folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
cache=${XDG_CACHE_HOME:-$HOME/.cache}/brivon/windows
toolkit=$cache/toolkit

# What the programs do without is left out, and nothing of this system comes in: the libraries that
# the toolkit rests on are the copies that it brings along.
off=(
  androiddeployqt brotli concurrent dbus direct2d directwrite directwrite3 dynamicgl gif glib ico
  icu jpeg libb2 opengl openssl pkg_config printsupport qmake schannel sql tabletevent vulkan xml
  zstd system_doubleconversion system_freetype system_harfbuzz system_libb2 system_libmd4c
  system_pcre2 system_png system_zlib
)
on=(freetype sessionmanager)

{
  tools/install_missing.sh g++-mingw-w64-x86-64-posix dpkg-dev qt6-base-dev qt6-base-dev-tools \
    libboost-dev libcli11-dev googletest
  # The programs that the toolkit's own build runs are those of this system, of the same version.
  version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
  stamp="$version $(cksum <packaging/windows/mingw.cmake) off ${off[*]} on ${on[*]}"
} >&2
if [ "$(cat "$toolkit/made_of" 2>/dev/null)" = "$stamp" ]; then
  echo "$toolkit"
  exit
fi

# The sources of the packages that this system has, from where it has them, for this run alone.
fetch_source() {
  mkdir -p "$cache/lists/partial"
  apt-cache policy qt6-base-dev |
    awk '/ Packages$/ { split($3, part, "/"); print "deb-src", $2, part[1], part[2] }' \
      >"$cache/sources.list"
  local apt=(apt-get -q -o "Dir::Etc::SourceList=$cache/sources.list" -o Dir::Etc::SourceParts=-
    -o "Dir::State::Lists=$cache/lists")
  "${apt[@]}" update
  rm -rf "$cache/fetched" "$cache/source"
  mkdir "$cache/fetched"
  (cd "$cache/fetched" && "${apt[@]}" source "qt6-base=$version")
  mv "$cache"/fetched/*/ "$cache/source"
  rm -rf "$cache/fetched"
  echo "$version" >"$cache/source_version"
}

build_toolkit() {
  local host
  host=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake
  # A second try goes on where the first one ended.
  cmake -S "$cache/source" -B "$cache/build" -G Ninja \
    "-DCMAKE_TOOLCHAIN_FILE=$cache/mingw.cmake" -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_INSTALL_PREFIX=$toolkit" -DCMAKE_SKIP_INSTALL_RPATH=ON -DBUILD_SHARED_LIBS=ON \
    -DQT_HOST_PATH=/usr "-DQt6HostInfo_DIR=$host/Qt6HostInfo" "-DQT_HOST_PATH_CMAKE_DIR=$host" \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    "${off[@]/%/=OFF}" "${on[@]/%/=ON}"
  cmake --build "$cache/build" -j "${BRIVON_JOBS:-2}"
  cmake --install "$cache/build"
}

# Headers alone: those beside them are this system's.
copy_headers() {
  mkdir -p "$toolkit/include" "$toolkit/share/cmake"
  rm -rf "$toolkit"/{include/CLI,share/cmake/CLI11}
  cp -R /usr/include/CLI "$toolkit/include/CLI"
  cp -R /usr/share/cmake/CLI11 "$toolkit/share/cmake/CLI11"
}

build_test_library() {
  cmake -S /usr/src/googletest -B "$cache/googletest" -G Ninja \
    "-DCMAKE_TOOLCHAIN_FILE=$cache/mingw.cmake" -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_INSTALL_PREFIX=$toolkit" -DBUILD_SHARED_LIBS=OFF -DBUILD_GMOCK=OFF
  cmake --build "$cache/googletest" -j "${BRIVON_JOBS:-2}"
  cmake --install "$cache/googletest"
}

# Whatever comes into a folder of the programs comes with its licence.
copy_licenses() {
  mkdir -p "$toolkit/licenses"
  cp "$cache/source/debian/copyright" "$toolkit/licenses/qt6-base.txt"
  local text package
  for text in LGPL-3.0-only GPL-3.0-only GPL-2.0-only; do
    cp "$cache/source/LICENSES/$text.txt" "$toolkit/licenses"
  done
  for package in libcli11-dev libboost-dev mingw-w64-common gcc-mingw-w64-base; do
    cp "/usr/share/doc/$package/copyright" "$toolkit/licenses/$package.txt"
  done
}

off=("${off[@]/#/-DFEATURE_}")
on=("${on[@]/#/-DFEATURE_}")
{
  mkdir -p "$cache"
  cmp -s packaging/windows/mingw.cmake "$cache/mingw.cmake" ||
    cp packaging/windows/mingw.cmake "$cache/mingw.cmake"
  [ "$(cat "$cache/source_version" 2>/dev/null)" = "$version" ] || fetch_source
  copy_headers
  build_test_library
  build_toolkit
  copy_licenses
  echo "$stamp" >"$toolkit/made_of"
} >&2
echo "$toolkit"
