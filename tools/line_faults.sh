#!/usr/bin/env bash
# Tries every fault of a line at every moment of every window that sends: in virtual time, and then
# over real sockets and pseudo-terminals in real time, which takes about a quarter of an hour. Takes
# options for GoogleTest, such as --gtest_filter=*Page*.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests
cmake --preset release -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON >/dev/null
cmake --build --preset release --target line_faults_test
QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 BRIVON_LINE_FAULTS=all \
  build/release/tests/sending/line_faults_test "$@"
