# What the tests of the scripts share, to be sourced.
# shellcheck shell=bash

failures=0
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT

# expect WHAT FOUND EXPECTED: tells where the two differ.
expect() {
  [ "$2" != "$3" ] || return 0
  printf 'FAILED: %s\n  found:    %q\n  expected: %q\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}

# The last command of a test.
succeed_without_failures() { [ "$failures" -eq 0 ]; }
