#!/usr/bin/env bash
# The parts of run.sh, in a folder whose name has whatever a shell, a pattern or a pipe would take
# for something else.
#
#   run_parts_test.sh SOURCE_FOLDER VIRTUAL_PANEL
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"
source=$1
virtual_panel=$2
. "$source/tools/run_parts.sh"

folder="$scratch/Grüße & mehr | \\1 'n' \"\$HOME\" *"
mkdir "$folder"
line="$folder/panel-line"

name_port_2 "$line" <"$source/samples/brivon.ini" >"$folder/brivon.ini"
expect "one line of the sample is another, and it names the device" \
  "$(diff "$source/samples/brivon.ini" "$folder/brivon.ini" | tail -n +2)" \
  "< ;Com2=/dev/ttyUSB0"$'\r'"
---
> Com2=$line"$'\r'

exec {panel_says}< <(exec "$virtual_panel" --headless --tcp 127.0.0.1:0 --pty "$line")
panel=$!
said=$(pass_on_until_ready <&"$panel_says")
expect "waiting for a program that becomes ready" "$?" 0
expect "what it said last" "${said##*$'\n'}" ready
expect "its line is there as soon as it is ready" "$([ -c "$line" ] && echo there)" there
kill "$panel"

export XDG_CACHE_HOME="$scratch/cache"
expect "CMake and Ninja take this folder as it is" \
  "$(path_to_build_in "/home/Grüße & mehr")" "/home/Grüße & mehr"
link=$(path_to_build_in "$folder")
expect "they do not take this one" "${link//[!|;\"\\#?<>]/}" ""
expect "the link leads there" "$(readlink "$link")" "$folder"
expect "the link is the same each time" "$(path_to_build_in "$folder")" "$link"
expect "another folder has another link" \
  "$([ "$(path_to_build_in "$folder 2")" != "$link" ] && echo another)" another

said=$(printf 'one\ntwo\n' | pass_on_until_ready)
expect "waiting for a program that ends before it is ready" "$?" 1
expect "what it said" "$said" $'one\ntwo'

succeed_without_failures
