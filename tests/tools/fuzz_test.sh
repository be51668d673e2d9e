#!/usr/bin/env bash
# What tools/fuzz.sh takes, and that it knows every target.
#
#   fuzz_test.sh SOURCE_FOLDER
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"

# Runs it and keeps what it says and its status. Nothing is installed or built before the arguments
# are known to be right.
ask() {
  said=$("$1/tools/fuzz.sh" "${@:2}" 2>&1)
  status=$?
}

targets="code_page coded_text configuration ini_file language_file message_file message_text \
panel_engine panel_list schedule_file scrolling_file"

ask "$1"
expect "the status without arguments" "$status" 2
expect "the targets" "$(tail -n 1 <<<"$said")" "Targets: all $targets"
ask "$1" message_file soon
expect "the status for a time that is none" "$status" 2
ask "$1" message_file 1 first
expect "the status for a start number that is none" "$status" 2
ask "$1" sermon_file 1
expect "the status for a target that is none" "$status" 2
expect "the word for it" "$said" "No target sermon_file: $targets"

succeed_without_failures
