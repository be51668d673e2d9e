#!/usr/bin/env bash
# A program's manual page names the options that the program names itself, and no others.
#
#   manual_pages_test.sh SOURCE_FOLDER INSTALLED_TREE
set -uo pipefail
. "$1/tests/tools/check.sh"
tree=$2

options_in() { grep -oE -- '(^|[^-[:alnum:]])--[a-z][-a-z]*' | grep -o -- '--.*' | sort -u; }

# page PROGRAM: its manual page without what is for the typesetter.
page() { sed 's/\\-/-/g; s/\\f.//g' "$tree/share/man/man1/$1.1"; }

# The help of a program and of all that is below it.
helps_of() {
  "$@" --help
  local command
  for command in $("$@" --help | sed -n '/^Subcommands:/,$s/^  \([a-z-]\+\) .*/\1/p'); do
    helps_of "$@" "$command"
  done
}

if [ -x "$tree/bin/virtual_panel" ]; then
  expect "virtual_panel" "$(page virtual_panel | options_in)" \
    "$("$tree/bin/virtual_panel" --help | options_in)"
fi
if [ -x "$tree/bin/brivonctl" ]; then
  expect "brivonctl" "$(page brivonctl | options_in)" "$(helps_of "$tree/bin/brivonctl" | options_in)"
fi
# Brivon itself takes none.
expect "brivon" "$(page brivon | options_in)" ""

succeed_without_failures
