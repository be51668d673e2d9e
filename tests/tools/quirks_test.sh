#!/usr/bin/env bash
# Every test that docs/architecture.md names for a quirk is there: one that was renamed holds
# nothing in the eyes of whoever looks for it.
set -u
source=$1
. "$source/tests/tools/check.sh"

# A suite has its instance's name before it or its type's behind it, a test its parameter's: each of
# Instance/Suite.Test/parameter and Suite/Type.Test is also Suite.Test.
there=$(ctest --test-dir "$2" -N | sed -nE 's/^ *Test +#[0-9]+: //p' |
  awk -F. '{ split($2, test, "/"); n = split($1, names, "/");
             for (i = 1; i <= n; ++i) print names[i] "." test[1] }' | sort -u)
named=$(sed -nE 's/^\|.*\| `([^`]+)` \|$/\1/p' "$source/docs/architecture.md")

expect "some tests are named" "$([ "$(wc -l <<<"$named")" -gt 20 ] && echo yes)" yes
while read -r test; do
  expect "the test $test" "$(grep -Fx "$test" <<<"$there")" "$test"
done <<<"$named"

succeed_without_failures
