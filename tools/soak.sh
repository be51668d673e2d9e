#!/usr/bin/env bash
# Sends from the real windows, without end, to panels that misbehave on a TCP port and a
# pseudo-terminal, and measures what the program holds: memory, descriptors, threads, objects and
# timers. Takes the minutes (60), then options of the program: --start N, --csv FILE. From the tenth
# minute on nothing may grow, in a shorter run from its middle on; the last line says it. With
# "transfers" and a count in place of the minutes it runs so many transfers in virtual time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests
preset=${BRIVON_PRESET:-release}
cmake --preset "$preset" -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON -DBRIVON_CTL=ON >/dev/null
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC
if [ "${1:-}" = transfers ]; then
  cmake --build --preset "$preset" --target brivon_transfers
  exec "build/$preset/tests/soak/brivon_transfers" --count "${2:-100000}" "${@:3}"
fi
minutes=${1:-60}
cmake --build --preset "$preset" --target brivon_soak
exec "build/$preset/tests/soak/brivon_soak" --minutes "$minutes" --csv build/soak.csv "${@:2}"
