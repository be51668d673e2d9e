#!/usr/bin/env bash
# Configures the sources $1 in the folder $2 for Windows, with the toolkit that toolkit.sh has made.
# Passes what follows on to CMake.
set -euo pipefail
toolkit=${XDG_CACHE_HOME:-$HOME/.cache}/brivon/windows/toolkit
host=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake
cmake -S "$1" -B "$2" -G Ninja "-DCMAKE_TOOLCHAIN_FILE=$toolkit/lib/cmake/Qt6/qt.toolchain.cmake" \
  "-DQT_CHAINLOAD_TOOLCHAIN_FILE=$1/packaging/windows/mingw.cmake" -DQT_HOST_PATH=/usr \
  "-DQT_HOST_PATH_CMAKE_DIR=$host" "${@:3}"
