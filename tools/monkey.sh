#!/usr/bin/env bash
# Random keys, clicks, line faults, full disks and log-outs at all windows of Brivon, under the
# address and undefined sanitizers: tools/monkey.sh MINUTES [START]. Each day at the windows has a
# number of its own, from START on (1 where none is given), and 3000 actions. A day that ends badly
# is kept as a log, and made as short as it goes.
set -euo pipefail
minutes=${1:?"tools/monkey.sh MINUTES [START]"}
start=${2:-1}
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests
cmake --preset sanitize -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON >/dev/null
cmake --build --preset sanitize --target brivon_monkey
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 LANGUAGE='' TZ=UTC
export LSAN_OPTIONS="suppressions=$PWD/tests/support/leaks_of_others.txt"
monkey=build/sanitize/tests/monkey/brivon_monkey
logs=build/sanitize/monkey
mkdir -p "$logs"
export XDG_CONFIG_HOME=$PWD/$logs/home # where file dialogs keep what they remember

days=0
bad=0
end=$((SECONDS + minutes * 60))
while [ "$SECONDS" -lt "$end" ]; do
  log=$logs/$start.txt
  days=$((days + 1))
  if "$monkey" --start "$start" --log "$log" >"$logs/output.txt" 2>&1; then
    rm "$log"
  else
    bad=$((bad + 1))
    cat "$logs/output.txt"
    echo "Start number $start: what was done is in $log, the shortest part of it in $logs/$start-short.txt."
    "$monkey" --shrink "$log" >"$logs/$start-short.txt" || echo "It does not fail again."
  fi
  start=$((start + 1))
done
echo "$days days, $bad of them ended badly; the next start number is $start."
[ "$bad" -eq 0 ]
