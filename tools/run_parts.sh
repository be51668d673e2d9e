# Parts of run.sh and test.sh, to be sourced.
# shellcheck shell=bash

# Copies a brivon.ini and names the device $1 as that of port 2. The name may hold any character.
name_port_2() {
  local line
  while IFS= read -r line; do
    [[ $line != ';Com2='* ]] || line="Com2=$1"$'\r'
    printf '%s\n' "$line"
  done
}

# Passes on what a program says until it says "ready". False if it ends before, or is silent for
# half a minute.
pass_on_until_ready() {
  local line
  while IFS= read -r -t 30 line; do
    printf '%s\n' "$line"
    [ "$line" != ready ] || return 0
  done
  return 1
}

# A path of the folder $1 for CMake and Ninja, which do not take every character. Where the folder's
# own path has such a one it is a link, the same each time: a build folder remembers its path.
path_to_build_in() {
  case $1 in
    *[\|\;\"\\\#\?\<\>]* | *$'\n'*) ;;
    *)
      printf '%s\n' "$1"
      return
      ;;
  esac
  local links=${XDG_CACHE_HOME:-$HOME/.cache}/brivon
  local link
  link=$links/$(cksum <<<"$1" | tr ' ' -)
  mkdir -p "$links" && ln -sfn "$1" "$link" && printf '%s\n' "$link"
}
