#!/usr/bin/env bash
# A line with a branch that no test takes is shown unless it is named, and a name that no such line
# has is shown too.
#
#   untaken_branches_test.sh SOURCE_FOLDER
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"
source=$1

command -v python3 >/dev/null || { echo "There is no Python."; exit 77; }

mkdir "$scratch/src" "$scratch/tools"
printf 'if (a) b();\n  if (c) d();\n  if (c) d();\nif (e) f();\n' >"$scratch/src/one.cpp"

# How often each branch of a line was taken, and whether an exception takes it.
branch() { printf '{"count": %s, "fallthrough": false, "throw": %s}' "$1" "$2"; }
line() { printf '{"line_number": %s, "count": 1, "branches": [%s, %s]}' "$1" "$2" "$3"; }
printf '{"files": [{"file": "src/one.cpp", "lines": [%s, %s, %s, %s]}]}' \
  "$(line 1 "$(branch 1 false)" "$(branch 2 false)")" \
  "$(line 2 "$(branch 1 false)" "$(branch 0 false)")" \
  "$(line 3 "$(branch 0 false)" "$(branch 3 false)")" \
  "$(line 4 "$(branch 1 false)" "$(branch 0 true)")" >"$scratch/counted.json"

judge() {
  "$source/tools/untaken_branches.py" --root "$scratch" "$scratch/counted.json" 2>&1
  echo "status $?"
}

name() { printf '# Nothing takes it.\n\n%s' "$1" >"$scratch/tools/untaken_branches.txt"; }

name ''
expect "lines that are not named" "$(judge)" "not taken, not named: src/one.cpp: if (c) d();
not taken, not named: src/one.cpp: if (c) d();
2 lines have a branch that no test takes, 0 of them are named
status 1"

name $'src/one.cpp: if (c) d();\nsrc/one.cpp: if (c) d();\n'
expect "lines that are named" "$(judge)" \
  "2 lines have a branch that no test takes, 2 of them are named
status 0"

name $'src/one.cpp: if (a) b();\nsrc/one.cpp: if (c) d();\nsrc/one.cpp: if (c) d();\n'
expect "a name too many" "$(judge)" "named, and taken or gone: src/one.cpp: if (a) b();
2 lines have a branch that no test takes, 2 of them are named
status 1"

succeed_without_failures
