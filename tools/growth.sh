#!/usr/bin/env bash
# Counts the instructions that each reader takes for its dearest shapes of input, in several sizes:
# tools/growth.sh [KILOBYTES...], 60, 1000 and 16000 unless told otherwise. Prints them for each byte,
# which stays the same where work grows with the input and with nothing else, and fails where the
# last size takes more than half as many again as the first one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
[ $# -gt 0 ] || set -- 60 1000 16000
sizes=$*

tools/install_missing.sh --tests valgrind
cmake --preset release >/dev/null
cmake --build --preset release --target growth

memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d -p "$memory")
export TMPDIR sizes
trap 'rm -rf "$TMPDIR"' EXIT

# The instructions of reading $2 kilobytes of shape $1.
# shellcheck disable=SC2317 # what xargs starts calls it
instructions() {
  valgrind --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null \
    build/release/fuzz/growth "$1" "$2" 2>&1 >/dev/null | sed -n 's/.*I *refs: *//p' | tr -d ,
}

# Writes the line of shape $1, of which there are at most $2 kilobytes.
# shellcheck disable=SC2317 # what xargs starts calls it
count() {
  local rest size each peak first='' last=''
  rest=$(instructions "$1" 0) # of starting
  printf '%-36s' "$1"
  for size in $sizes; do
    size=$((size < $2 ? size : $2))
    each=$((($(instructions "$1" "$size") - rest) / size / 1000))
    printf '%11s' "$each"
    first=${first:-$each} last=$each
  done
  peak=$(build/release/fuzz/growth "$1" "$size" | tr -dc 0-9)
  printf '%12s' $((peak / 1000))
  [ $((2 * last)) -le $((3 * first + 2)) ] || printf ' GROWS FASTER THAN THE INPUT'
  printf '\n'
}
export -f count instructions

printf '%-36s' shape
# shellcheck disable=SC2086 # one for each
printf '%8s KB' $sizes
printf '%12s\n' 'peak in MB'
# shellcheck disable=SC2016 # the other shell's
build/release/fuzz/growth | xargs -P 2 -L 1 bash -c 'count "$@" >"$TMPDIR/$1.line"' count
result=0
while read -r shape _; do
  cat "$TMPDIR/$shape.line"
  ! grep -q FASTER "$TMPDIR/$shape.line" || result=1
done < <(build/release/fuzz/growth)
exit $result
