#!/usr/bin/env bash
# Makes the pictures that README.md and the papers in docs/ name, from the programs, in docs/pictures.
#
#   docs/make_pictures.sh [PRESET]          makes them anew, and removes those that no paper names
#   docs/make_pictures.sh --check [PRESET]  changes nothing: says whether they can be made, come out
#                                           the same twice, and whether those in docs/pictures have
#                                           the names and sizes of the new ones. It does not compare
#                                           what they show
#
# The programs are built with the preset of that name, release unless told otherwise. How large a
# letter is depends on the system's fonts, so make all pictures on one system.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

check=
if [ "${1:-}" = --check ]; then
  check=yes
  shift
fi
preset=${1:-release}
tools/install_missing.sh --tests
cmake --preset "$preset" -DBRIVON_VIRTUAL_PANEL=ON -DBUILD_TESTING=ON >/dev/null
cmake --build --preset "$preset" --target brivon_pictures

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# make_pictures FOLDER: in an environment that is the same everywhere.
make_pictures() {
  mkdir -p "$scratch/home"
  if ! env -i PATH="$PATH" HOME="$scratch/home" XDG_RUNTIME_DIR="$scratch/home" \
    QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC \
    "build/$preset/tests/pictures/brivon_pictures" samples "$1" >"$scratch/says" 2>&1; then
    cat "$scratch/says" >&2
    return 1
  fi
}

# The names of the pictures that the papers show, each once.
named() {
  grep -ohE '!\[[^]]*\]\([^)]*\.png\)' README.md docs/*.md |
    sed -E 's/.*\((docs\/)?pictures\/(.*)\)/\2/' | sort -u
}

# same_names WHAT FOLDER: the folder holds the pictures that the papers name and no other.
same_names() {
  (cd "$2" && find . -type f | sed 's/^\.\///' | sort) >"$scratch/there"
  named >"$scratch/named"
  diff "$scratch/named" "$scratch/there" >"$scratch/difference" && return
  echo "What the papers name (<) and $1 (>) differ:" >&2
  grep '^[<>]' "$scratch/difference" >&2
  return 1
}

# The width and height of each picture in a folder, as the head of a PNG file has them.
sizes() {
  local picture
  for picture in "$1"/*.png; do
    echo "$(basename "$picture") $(od -An -tu1 -j16 -N8 "$picture" |
      awk '{ print $1 * 16777216 + $2 * 65536 + $3 * 256 + $4 "x" \
                   $5 * 16777216 + $6 * 65536 + $7 * 256 + $8 }')"
  done
}

# The pictures in docs/pictures are as large as those that the program makes.
same_sizes() {
  sizes "$scratch/once" >"$scratch/made"
  sizes docs/pictures >"$scratch/there"
  diff "$scratch/made" "$scratch/there" >"$scratch/difference" && return
  echo "The sizes that the program makes (<) and those in docs/pictures (>) differ:" >&2
  grep '^[<>]' "$scratch/difference" >&2
  return 1
}

make_pictures "$scratch/once"
same_names "what the program makes" "$scratch/once"
if [ -n "$check" ]; then
  make_pictures "$scratch/twice"
  diff -rq "$scratch/once" "$scratch/twice"
  same_names "what lies in docs/pictures" docs/pictures
  same_sizes
  exit
fi
find docs/pictures -type f -name '*.png' -delete
cp "$scratch"/once/*.png docs/pictures/
