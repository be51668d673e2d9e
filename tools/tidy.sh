#!/usr/bin/env bash
# Reads sources with clang-tidy, by the rules of .clang-tidy; every finding is an error. Takes
# sources and folders; without any it reads the programs, which takes some minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"
[ $# -gt 0 ] || set -- src panel_dots virtual_panel brivonctl

tools/install_missing.sh --tests clang libclang-rt-dev llvm clang-tidy python3
# Clang's build leaves what the sources include and nobody wrote: forms, precompiled headers.
cmake --preset ci-clang >/dev/null
cmake --build --preset ci-clang
# Those for Windows are not compiled here.
mapfile -d '' -t sources < <(find "$@" -name '*.cpp' ! -name '*_windows.cpp' -print0)
python3 tools/tidy_groups.py build/ci-clang "${sources[@]}"
