#!/usr/bin/env bash
# Lets 10 000 callers loose on the virtual panel, silent, slow, endless and greedy ones, and shows
# how soon its other lines answer meanwhile and how much memory it takes at most. Takes another
# number of callers.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

export BRIVON_CALLERS=${1:-10000}
# A byte a second from each, and a gigabyte of frames without an end.
export BRIVON_CALLER_PAUSE=1000 BRIVON_CALLER_MEGABYTES=1024
tools/install_missing.sh --tests
cmake --preset release -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON >/dev/null
cmake --build --preset release --target panel_callers_test
QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 build/release/tests/virtual_panel/panel_callers_test
