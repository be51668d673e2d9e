#!/usr/bin/env bash
# Installs what is missing, builds Brivon and the virtual panel, lays out a program folder in
# build/brivon/, and starts both; the panel ends with the program. Without a display, an operator's
# whole way is gone by itself on a virtual one, with pictures in build/journey/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

tools/install_missing.sh ${WAYLAND_DISPLAY:+qt6-wayland}
cmake --preset release >/dev/null
cmake --build --preset release --target brivon virtual_panel brivon_journey

built=build/release
folder=$PWD/build/brivon
mkdir -p "$folder"
install -m 755 "$built/src/brivon" "$built/virtual_panel/virtual_panel" "$folder/"
# What stands in the folder is the operator's: it is laid out once and never overwritten.
(cd samples && find messages schedules languages -type f) | while read -r sample; do
  [ -e "$folder/$sample" ] || install -D -m 644 "samples/$sample" "$folder/$sample"
done
if [ ! -e "$folder/brivon.ini" ]; then
  sed "s|^;Com2=[^\r]*|Com2=$folder/panel-line|" samples/brivon.ini >"$folder/brivon.ini"
fi

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No display: going an operator's way on a virtual one."
  exec xvfb-run -a -s "-screen 0 1600x1200x24" "$built/tests/journey/brivon_journey" \
    --panel-program "$folder/virtual_panel" --samples samples --pictures build/journey
fi

panel=
trap '[ -z "$panel" ] || kill "$panel" 2>/dev/null || true' EXIT
"$folder/virtual_panel" --panel 1:4x96:tri --panel 2:12x192:mono \
  --tcp 127.0.0.1:2101 --pty "$folder/panel-line" &
panel=$!
sleep 0.5
kill -0 "$panel" 2>/dev/null ||
  echo "The virtual panel could not start; Brivon runs without it." >&2
"$folder/brivon"
