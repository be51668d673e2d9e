#!/usr/bin/env bash
# Counts the instructions that each reader takes for its dearest shapes of input, a megabyte and more
# of them: tools/growth.sh [MEGABYTES...], 1 and 16 unless told otherwise. Prints thousands for each
# kilobyte, which stay the same where work grows with the input and with nothing else, and fails
# where the last size takes more than half as much again as the first one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
[ $# -gt 0 ] || set -- 1 16

tools/install_missing.sh --tests valgrind
cmake --preset release >/dev/null
cmake --build --preset release --target growth
growth=build/release/fuzz/growth

memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d -p "$memory")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

# The instructions of reading $2 megabytes of shape $1.
instructions() {
  valgrind --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null "$growth" "$1" "$2" \
    2>&1 >/dev/null | sed -n 's/.*I *refs: *//p' | tr -d ,
}

result=0
printf '%-36s' shape
printf '%8s MB' "$@"
printf '%12s\n' "peak in MB"
while read -r shape most; do
  printf '%-36s' "$shape"
  rest=$(instructions "$shape" 0) # of starting
  first='' last=''
  for size in "$@"; do
    size=$((size < most ? size : most))
    each=$((($(instructions "$shape" "$size") - rest) / size / 1000000))
    printf '%11s' "$each"
    first=${first:-$each} last=$each
  done
  printf '%12s\n' "$(("$("$growth" "$shape" "$size" | tr -dc 0-9)" / 1000))"
  if [ $((2 * last)) -gt $((3 * first + 2)) ]; then
    echo "It grows faster than the input." >&2
    result=1
  fi
done < <("$growth")
exit $result
