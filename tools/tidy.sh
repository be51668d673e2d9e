#!/usr/bin/env bash
# Reads sources with clang-tidy, by the rules of .clang-tidy; every finding is an error. Takes
# sources and folders; without any it reads the three programs, which takes about ten minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
[ $# -gt 0 ] || set -- src panel_dots virtual_panel brivonctl

tools/install_missing.sh --tests clang clang-tidy
# The build leaves what the sources include and nobody wrote: forms, precompiled headers.
cmake --preset ci-clang >/dev/null
cmake --build --preset ci-clang
find "$@" -name '*.cpp' -print0 | sort -z |
  xargs -0 -n 1 -P 2 clang-tidy -p build/ci-clang --quiet 2> >(grep -v ' warnings\? generated\.$' >&2)
