#!/usr/bin/env bash
# The entries of the menu are well formed, and what they name is installed.
#
#   desktop_entries_test.sh SOURCE_FOLDER INSTALLED_TREE
set -uo pipefail
. "$1/tests/tools/check.sh"
tree=$2
command -v desktop-file-validate >/dev/null || exit 77

entries=("$tree"/share/applications/*.desktop)
expect "there is an entry" "$([ -e "${entries[0]}" ] && echo yes)" yes
for entry in "${entries[@]}"; do
  name=$(basename "$entry" .desktop)
  expect "$name is well formed" "$(desktop-file-validate --warn-kde "$entry" 2>&1)" ""
  program=$(sed -n 's/^Exec=//p' "$entry")
  expect "$name starts what is installed" "$([ -x "$tree/bin/$program" ] && echo yes)" yes
  # The programs take no files on their command lines.
  expect "$name opens no files" "$(grep '^MimeType=' "$entry")" ""
  icon=$(sed -n 's/^Icon=//p' "$entry")
  for size in 16 24 32 48 64 128 256; do
    picture=$tree/share/icons/hicolor/${size}x$size/apps/$icon.png
    expect "$name has an icon of $size pixels" \
      "$(od -An --endian=big -j16 -N8 -td4 "$picture" | tr -s ' ')" " $size $size"
  done
  expect "$name has a drawing" "$(ls "$tree/share/icons/hicolor/scalable/apps/$icon.svg")" \
    "$tree/share/icons/hicolor/scalable/apps/$icon.svg"
done

succeed_without_failures
