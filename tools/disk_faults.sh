#!/usr/bin/env bash
# Lets every call of every save fail with every error, once and from then on, through every button
# that saves. Takes the names of the kinds of files (Page, Schedule, Scrolling, Configuration); all
# four without any.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

filter='*'
if [ $# -gt 0 ]; then
  filter=$(printf '*/%sName*:' "$@")
fi
tools/install_missing.sh --tests
cmake --preset release -DBUILD_TESTING=ON >/dev/null
cmake --build --preset release --target disk_faults_test
BRIVON_DISK_FAULTS=all QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 \
  build/release/tests/disk/disk_faults_test --gtest_filter="$filter" --gtest_brief=1 \
  2> >(grep -v propagateSizeHints >&2)
