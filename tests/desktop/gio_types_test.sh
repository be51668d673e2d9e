#!/usr/bin/env bash
# File managers that do not use Brivon's toolkit call its files by the same types, and no others.
#
#   gio_types_test.sh SOURCE_FOLDER INSTALLED_TREE
set -uo pipefail
. "$1/tests/tools/check.sh"
samples=$1/samples
export XDG_DATA_DIRS=$2/table XDG_DATA_HOME=$scratch
command -v gio >/dev/null && [ -e "$XDG_DATA_DIRS/mime/mime.cache" ] || exit 77

type_of() { gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'; }

for sample in "$samples"/messages/*.msg; do
  expect "$sample" "$(type_of "$sample")" application/x-brivon-page
done
expect "a schedule" "$(type_of "$samples/schedules/every_day.sch")" application/x-brivon-schedule
expect "a scrolling message" "$(type_of "$samples/messages/roadworks.srl")" \
  application/x-brivon-scrolling-message

for name in a.msg a.sch a.srl; do
  file=$scratch/$name
  printf 'Dear Sir or Madam,\r\n' >"$file"
  expect "a letter called $name" "$(type_of "$file")" text/plain
  printf 'From: a@example.org\r\nSubject: x\r\n\r\nHello\r\n' >"$file"
  expect "a mail called $name" "$(type_of "$file")" message/rfc822
  { printf '\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1' && head -c 1024 /dev/zero; } >"$file"
  expect "a mail of an office program called $name" "$(type_of "$file")" application/x-ole-storage
done

succeed_without_failures
