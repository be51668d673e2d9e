#!/usr/bin/env bash
# Builds the tests for Windows, from the sources as they were committed last, and runs them under
# Wine, the serial ports too. Takes the names of test programs; without any it runs all. Says a line
# of each program and a summary. What cannot hold there is named in left_out_tests.txt. The first run
# of all makes the toolkit too (toolkit.sh).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

cache=${XDG_CACHE_HOME:-$HOME/.cache}/brivon/windows/tests
mkdir -p "$cache"
# Two runs would share one Windows and one build.
exec {lock}>"$cache/lock"
flock -n "$lock" || { echo "Another run of the tests is under way." >&2 && exit 1; }
toolkit=$(packaging/windows/toolkit.sh)
tools/install_missing.sh git python3 wine wine64 libboost-dev g++-mingw-w64-x86-64-posix \
  fonts-dejavu-core
# The clone stays for the next run, which builds what has changed since.
if [ -d "$cache/source/.git" ]; then
  git -C "$cache/source" -c gc.auto=0 fetch -q "$PWD" HEAD
  git -C "$cache/source" checkout -q --detach FETCH_HEAD
else
  git clone -q --no-hardlinks "$PWD" "$cache/source"
fi
launcher=()
! command -v ccache >/dev/null || launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
"$cache/source/packaging/windows/configure.sh" "$cache/source" "$cache/build" \
  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DBUILD_TESTING=ON -DBRIVON_BENCHMARKS=OFF \
  -DBRIVON_PRECOMPILED_HEADERS=ON "${launcher[@]}" >/dev/null
programs=("$@")
[ $# -gt 0 ] || mapfile -t programs < <(cut -f 1 "$cache/build/test_programs")
cmake --build "$cache/build" --target "${programs[@]}"
"$cache/source/packaging/windows/run_tests.py" "$cache/build" "$toolkit" "$@"
