#!/usr/bin/env bash
# Looks for an input that breaks a reader: tools/fuzz.sh TARGET MINUTES [START], or SECONDSs in place
# of the minutes. TARGET is one of fuzz/, or "all", two of them side by side. START is the start
# number of the mutations, another one each time unless it is given.
# What was found to lead further is kept in build/fuzz/found and where the next run begins; an input
# that breaks something goes to build/fuzz/broken and is shown.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
export LC_ALL=C.UTF-8

targets=()
for source in fuzz/*_fuzz.cpp; do targets+=("$(basename "$source" _fuzz.cpp)"); done
if [ $# -lt 2 ] || [[ ! $2 =~ ^[0-9]+s?$ ]] || [[ ! ${3:-0} =~ ^[0-9]+$ ]]; then
  echo "Usage: tools/fuzz.sh TARGET MINUTES|SECONDSs [START]" >&2
  echo "Targets: all ${targets[*]}" >&2
  exit 2
fi
if [ "$1" != all ]; then
  [[ " ${targets[*]} " == *" $1 "* ]] || { echo "No target $1: ${targets[*]}" >&2; exit 2; }
  targets=("$1")
fi
case $2 in *s) seconds=${2%s} ;; *) seconds=$(($2 * 60)) ;; esac
start=${3:-$((RANDOM * 32768 + RANDOM + 1))}

tools/install_missing.sh clang libclang-rt-dev llvm
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

# A folder in memory for the files that are read: hundreds of them a second.
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d -p "$memory")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
# Short stacks and a small quarantine: more inputs in the same time.
export ASAN_OPTIONS=malloc_context_size=5:quarantine_size_mb=32 UBSAN_OPTIONS=print_stacktrace=1
mkdir -p build/fuzz/broken build/fuzz/logs

# Runs one target; its report is the log.
# shellcheck disable=SC2317 # what xargs starts calls it
fuzz() {
  local target=$1 longest=4096
  [ "$target" != panel_engine ] || longest=70000 # a frame that is too long has 65536 bytes
  mkdir -p "build/fuzz/found/$target"
  "build/fuzz/fuzz/$target" -seed="$start" -max_total_time="$seconds" -max_len="$longest" \
    -timeout=20 -rss_limit_mb=1024 -malloc_limit_mb=256 -print_final_stats=1 \
    -dict="fuzz/$target.dict" -artifact_prefix="build/fuzz/broken/$target-" \
    "build/fuzz/found/$target" "fuzz/corpus/$target" >"build/fuzz/logs/$target" 2>&1
}
export -f fuzz
export start seconds

rooms='Brivon1 ModuleLanguage PanelDots VirtualPanel Fuzz'
result=0
printf '%s\n' "${targets[@]}" | xargs -P 2 -I '{}' bash -c 'fuzz "{}"' || result=1

printf 'start number %s\n%-16s %12s %8s\n' "$start" target executions edges
for target in "${targets[@]}"; do
  log=build/fuzz/logs/$target
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)
  printf '%-16s %12s %8s\n' "$target" "${executions:-?}" "${edges:-?}"
  if grep -q 'Test unit written to' "$log"; then
    result=1
    grep -E "what\(\)|^==.*ERROR|runtime error|in .*(${rooms// /|})::.*:[0-9]" "$log" | head -n 20
    input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
    echo "Once more: build/fuzz/fuzz/$target $input"
  elif [ -z "$executions" ]; then
    result=1
    tail -n 20 "$log"
  fi
done
exit $result
