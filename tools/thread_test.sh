#!/usr/bin/env bash
# Builds what has threads under the thread sanitizer and runs its tests: many panels side by side,
# and the log that many write.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests
cmake --preset threads >/dev/null
cmake --build --preset threads --target brivonctl_lines_test brivonctl_rules_test
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QT_NO_GLIB=1
export TSAN_OPTIONS="suppressions=$PWD/tests/support/races_of_others.txt halt_on_error=0 exitcode=66"
# The sanitizer wants its addresses where it looks for them.
run=()
! setarch -R true 2>/dev/null || run=(setarch -R)
"${run[@]}" build/threads/tests/brivonctl/brivonctl_lines_test --gtest_brief=1
"${run[@]}" build/threads/tests/brivonctl/brivonctl_rules_test --gtest_brief=1 \
  --gtest_filter='LogFileTest.*'
