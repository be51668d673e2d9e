# The steps of a trial, to be sourced.
# shellcheck shell=bash

failed_steps=0

# step WHAT COMMAND...: carries the command out and says whether it succeeded, and what it said
# where it did not. The trial goes on either way; its status is that of no_step_failed.
step() {
  local what=$1 says
  shift
  if says=$("$@" 2>&1); then
    printf 'ok      %s\n' "$what"
    return
  fi
  printf 'FAILED  %s\n' "$what"
  [ -z "$says" ] || printf '%s\n' "$says" | head -n 20 | sed 's/^/        /'
  failed_steps=$((failed_steps + 1))
}

no_step_failed() { [ "$failed_steps" -eq 0 ]; }

# What a command said that has not succeeded yet.
said_soon=$(mktemp)

# Carries the command out until it succeeds, for half a minute.
soon() {
  local deadline=$((SECONDS + 30))
  until "$@" >"$said_soon" 2>&1; do
    if [ "$SECONDS" -ge "$deadline" ]; then
      cat "$said_soon"
      return 1
    fi
    sleep 0.1
  done
}

# A command that says "no": the status of one that could not be carried out is another.
not() {
  local status=0
  "$@" || status=$?
  [ "$status" -eq 1 ]
}
