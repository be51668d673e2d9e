#!/usr/bin/env bash
# Draws the icons of the programs and of their files in the usual sizes, from icons/*.svg. One that
# is drawn for 16 pixels by itself ends in "-16". Windows has all sizes of a program's in one file.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
../../tools/install_missing.sh librsvg2-bin icoutils

for drawing in icons/*.svg; do
  name=$(basename "$drawing" .svg)
  [[ $name != *-16 ]] || continue
  for size in 16 24 32 48 64 128 256; do
    from=$drawing
    [ "$size" -ne 16 ] || [ ! -e "icons/$name-16.svg" ] || from=icons/$name-16.svg
    mkdir -p "icons/$size"
    rsvg-convert -w "$size" -h "$size" "$from" -o "icons/$size/$name.png"
  done
done

for program in org.brivon.Brivon org.brivon.VirtualPanel; do
  icotool -c -o "icons/$program.ico" icons/{16,24,32,48,64}/"$program.png" \
    --raw="icons/256/$program.png"
done
