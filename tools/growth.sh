#!/usr/bin/env bash
# Counts the instructions that each reader takes for its dearest shapes of input, in several sizes:
# tools/growth.sh [KILOBYTES...], 60, 1000 and 16000 unless told otherwise. Prints a table of them
# for each byte, which stays the same where work grows with the input and with nothing else, and
# fails where the last size takes more than half as many again as the one before. What a reader
# refuses beyond a size is counted at that size, and the table says why.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
[ $# -gt 0 ] || set -- 60 1000 16000
sizes=$*

tools/install_missing.sh --tests valgrind
cmake --preset release -DBUILD_TESTING=ON >/dev/null
cmake --build --preset release --target growth

memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d -p "$memory")
export TMPDIR sizes
trap 'rm -rf "$TMPDIR"' EXIT

# The instructions of reading $2 kilobytes of shape $1. Fails where it is not read to its end.
# shellcheck disable=SC2317 # what xargs starts calls it
instructions() {
  local log=$TMPDIR/$1.log
  valgrind --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null \
    build/release/fuzz/growth "$1" "$2" 2>"$log" >/dev/null || {
    tail -n 3 "$log" >&2
    return 1
  }
  sed -n 's/.*I *refs: *//p' "$log" | tr -d , | grep .
}

# Writes the row of shape $1, of which $2 kilobytes are read at the most, for the reason behind it.
# shellcheck disable=SC2317 # what xargs starts calls it
count() {
  local shape=$1 most=$2 row why='' rest size read all each peak before='' last='' counted=0
  row="| ${shape/:/, } |"
  rest=$(instructions "$shape" 0) || rest='' # of starting
  for size in $sizes; do
    read=$((size < most ? size : most))
    if [ -z "$rest" ] || ! all=$(instructions "$shape" "$read"); then
      printf '%s FAILED at %s KB\n' "$row" "$read"
      return 1
    fi
    each=$(((all - rest) / read / 1000))
    row+=" $each"
    [ "$read" -eq "$size" ] || { row+=" at $read KB" && why=${*:3}; }
    row+=' |'
    [ "$read" -eq "$counted" ] || before=${last:-$each} last=$each counted=$read
  done
  peak=$(build/release/fuzz/growth "$shape" "$read" | tr -dc 0-9)
  printf '%s %s MB | %s |' "$row" $((peak / 1000)) "$why"
  [ $((2 * last)) -le $((3 * before + 2)) ] || printf ' GROWS FASTER THAN THE INPUT'
  printf '\n'
}
export -f count instructions

result=0
# shellcheck disable=SC2016 # the other shell's
build/release/fuzz/growth |
  xargs -P 2 -L 1 bash -c 'count "$@" >"$TMPDIR/$1.row"' count || result=1

printf '| shape |'
printf ' %s KB |' "$@"
printf ' peak memory | no more, because |\n|---|'
printf -- '---:|%.0s' "$@"
printf -- '---:|---|\n'
while read -r shape _; do
  cat "$TMPDIR/$shape.row"
  ! grep -q FASTER "$TMPDIR/$shape.row" || result=1
done < <(build/release/fuzz/growth)
exit $result
