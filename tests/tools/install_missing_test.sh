#!/usr/bin/env bash
# On a system with other packages than Debian's nothing is installed: what is there will do, and what
# is missing is named as it is named there.
#
#   install_missing_test.sh SOURCE_FOLDER
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/check.sh"
source=$1

# there PROGRAM...: lays out a system that has these programs and no others.
there() {
  rm -rf "${scratch:?}/bin"
  mkdir "$scratch/bin"
  local program
  for program in "$@"; do ln -s /bin/true "$scratch/bin/$program"; done
  ln -s "$(command -v bash)" "$scratch/bin/bash"
}

# install_missing PACKAGE...: what install_missing.sh says there, and its exit status.
install_missing() {
  env -u CXX PATH="$scratch/bin" "$scratch/bin/bash" "$source/tools/install_missing.sh" "$@" 2>&1
  echo "exit status $?"
}

intro="This system has no Debian packages, so nothing was installed. What is missing:"

there c++ cmake ninja
expect "everything is there" "$(install_missing)" "exit status 0"

there clang++ cmake ninja-build xvfb-run xauth clang-format
expect "another compiler, another name of Ninja, and what a caller asks for beside them" \
  "$(install_missing xvfb xauth clang clang-format qt6-wayland)" "exit status 0"

there ninja
expect "no compiler and no CMake" "$(install_missing)" "$intro
  a C++20 compiler, such as GCC or Clang
  CMake 3.25
exit status 1"

there c++ cmake
expect "no Ninja, nor anything that a caller asks for" \
  "$(install_missing xvfb xauth clang clang-format)" "$intro
  Ninja
  Xvfb and xvfb-run
  xauth
  Clang
  clang-format of Clang 14
exit status 1"

there c++ cmake dpkg-query
expect "Debian's query alone makes no Debian" "$(install_missing)" "$intro
  Ninja
exit status 1"

succeed_without_failures
