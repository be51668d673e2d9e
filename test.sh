#!/usr/bin/env bash
# Installs what is missing, builds everything, and runs all tests. Takes a preset's name
# (release unless told otherwise).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

preset=${1:-release}
tools/install_missing.sh --tests
[ "$preset" != ci-clang ] || tools/install_missing.sh clang libclang-rt-dev llvm
cmake --preset "$preset" -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON -DBRIVON_CTL=ON >/dev/null
cmake --build --preset "$preset"
QT_QPA_PLATFORM=offscreen ctest --preset "$preset"
