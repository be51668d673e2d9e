#!/usr/bin/env bash
# Each line of the list of equivalent mutants names a mutant, and one that does not is shown.
#
#   mutants_test.sh SOURCE_FOLDER
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"
source=$1

command -v python3 >/dev/null || { echo "There is no Python."; exit 77; }

expect "what names no mutant" "$("$source/tools/mutants.py" --entries 2>&1; echo "status $?")" \
  "status 0"

# The same with a line too many.
mkdir "$scratch/tools"
cp "$source"/tools/{*.py,run_parts.sh,equivalent_mutants.txt} "$scratch/tools"
ln -s "$source/src" "$scratch/src"
printf 'src/base/text.cpp: Gone: {1|2};\n    It has gone.\n' >>"$scratch/tools/equivalent_mutants.txt"
expect "a line that names none" "$("$scratch/tools/mutants.py" --entries 2>&1; echo "status $?")" \
  "equivalent_mutants.txt names no mutant:
    src/base/text.cpp: Gone: {1|2};
status 1"

succeed_without_failures
