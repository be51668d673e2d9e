#!/usr/bin/env bash
# Installs what is missing, builds Brivon and the virtual panel, lays out a program folder in
# build/brivon/, and starts both; the panel ends with the program. Without a display, an operator's
# whole way is gone by itself on a virtual one, with pictures in build/journey/. Takes a preset's
# name (release unless told otherwise).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/run_parts.sh
folder=$PWD/build/brivon
path=$(path_to_build_in "$PWD")
cd "$path"

preset=${1:-release}
no_display= tests=OFF
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || no_display=yes tests=ON
# With a display the programs will do; the way that is gone by itself is a test.
tools/install_missing.sh ${no_display:+--tests xauth} ${WAYLAND_DISPLAY:+qt6-wayland}
cmake --preset "$preset" -DBRIVON_VIRTUAL_PANEL=ON -DBRIVON_CTL=ON -DBUILD_TESTING="$tests" >/dev/null
cmake --build --preset "$preset" --target brivon virtual_panel brivonctl manual ${no_display:+brivon_journey}

built=build/$preset
mkdir -p "$folder"
install -m 755 "$built/src/app/brivon" "$built/virtual_panel/virtual_panel" \
  "$built/brivonctl/brivonctl" "$folder/"
rm -rf "$folder/manual"
[ ! -d "$built/manual" ] || cp -R "$built/manual" "$folder/manual"
# What stands in the folder is the operator's: it is laid out once and never overwritten.
(cd samples && find messages schedules languages -type f) | while read -r sample; do
  [ -e "$folder/$sample" ] || install -D -m 644 "samples/$sample" "$folder/$sample"
done
if [ ! -e "$folder/brivon.ini" ]; then
  name_port_2 "$folder/panel-line" <samples/brivon.ini >"$folder/brivon.ini"
fi

if [ -n "$no_display" ]; then
  echo "No display: going an operator's way on a virtual one."
  exec xvfb-run -a -s "-screen 0 1600x1200x24" "$built/tests/journey/brivon_journey" \
    --panel-program "$folder/virtual_panel" --samples samples --pictures build/journey
fi

exec {panel_says}< <(exec "$folder/virtual_panel" --panel 1:4x96:tri --panel 2:12x192:mono \
  --tcp 127.0.0.1:2101 --pty "$folder/panel-line")
panel=$!
trap 'kill "$panel" 2>/dev/null || true' EXIT
if ! pass_on_until_ready <&"$panel_says"; then
  kill "$panel" 2>/dev/null || true
  echo "The virtual panel could not start; Brivon runs without it." >&2
fi
cat <&"$panel_says" &
"$folder/brivon"
