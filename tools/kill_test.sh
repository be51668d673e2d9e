#!/usr/bin/env bash
# Kills a program that saves: at every call of a save, and at random moments. Takes how often at
# random, for each kind of file (1000 unless told otherwise), and the number that the moments start
# from; with the same number they are drawn the same.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests
cmake --preset release -DBUILD_TESTING=ON >/dev/null
cmake --build --preset release --target killed_saves_test
BRIVON_KILLS=${1:-1000} BRIVON_START=${2:-1} QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 \
  build/release/tests/disk/killed_saves_test --gtest_brief=1 \
  2> >(grep -v propagateSizeHints >&2)
