#!/usr/bin/env bash
# The program alone: CLI11, GoogleTest, Google Benchmark and FreeType are not needed, and nothing of
# the virtual panel is built that the program does not need.
#
#   lean_build_test.sh SOURCE_FOLDER COMPILER
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"

cmake -G Ninja -S "$1" -B "$scratch/build" -DCMAKE_CXX_COMPILER="$2" \
  -DBUILD_TESTING=OFF -DBRIVON_VIRTUAL_PANEL=OFF -DBRIVON_CTL=OFF \
  -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON \
  -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON -DCMAKE_DISABLE_FIND_PACKAGE_Freetype=ON \
  >"$scratch/log" 2>&1
result=$?
expect "configuring: $(cat "$scratch/log")" "$result" 0

plan=$(cmake --build "$scratch/build" -- -n)
expect "the programs that are built" \
  "$(grep -oE 'Linking CXX executable .*' <<<"$plan")" "Linking CXX executable src/app/brivon"
expect "the libraries of the virtual panel that are built" \
  "$(grep -oE 'Linking CXX static library virtual_panel/.*' <<<"$plan")" ""

succeed_without_failures
