#!/usr/bin/env bash
# Counts which lines and branches of each room the tests take, and names the lines with a branch that
# none of them takes and for which tools/untaken_branches.txt gives no reason. The branches by which an
# exception would leave a line are left out. Leaves a page for every source in build/coverage/html.
# Needs GCC and takes about as long as two builds; --report counts anew what the last run left. A test
# that fails does not keep it from counting; it is its status at the end, and so is such a line.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/run_parts.sh
path=$(path_to_build_in "$PWD")
cd "$path"

tools/install_missing.sh --tests gcovr
failed=0
unnamed=0
if [ "${1:-}" != --report ]; then
  CXX=g++ cmake --preset coverage -DBUILD_TESTING=ON -DBRIVON_VIRTUAL_PANEL=ON -DBRIVON_CTL=ON >/dev/null
  cmake --build --preset coverage
  find build/coverage -name '*.gcda' -delete
  # What the build's scripts do runs none of what is counted.
  ctest --preset coverage -E '^(rooms|install_missing_test|lean_build_test)$' || failed=1
fi

result=build/coverage
mkdir -p "$result/html"
gcovr --root . --object-directory "$result" -j 2 \
  --filter '(src|panel_dots|virtual_panel|brivonctl)/' --exclude "$result/" \
  --exclude-throw-branches --exclude-unreachable-branches \
  --gcov-ignore-parse-errors --branches --txt "$result/branches.txt" \
  --csv "$result/coverage.csv" --json "$result/coverage.json" \
  --html-details "$result/html/index.html"

cat "$result/branches.txt"
awk -F, '
  function share(taken, all) { return sprintf("%d of %d | %.1f %%", taken, all, all ? 100 * taken / all : 100) }
  function row(name, room) {
    printf "| %s | %s | %s |\n", name, share(lines[room], all_lines[room]),
      share(branches[room], all_branches[room])
  }
  NR == 1 { for (i = 1; i <= NF; ++i) column[$i] = i; next }
  {
    room = $column["filename"]
    sub(/\/[^\/]*$/, "", room)
    if (!(room in all_lines)) rooms[++count] = room
    for (i = 1; i <= 2; ++i) {
      name = i == 1 ? room : "all"
      lines[name] += $column["line_covered"]
      all_lines[name] += $column["line_total"]
      branches[name] += $column["branch_covered"]
      all_branches[name] += $column["branch_total"]
    }
  }
  END {
    print "\n| room | lines | | branches | |\n|---|---:|---:|---:|---:|"
    for (i = 1; i <= count; ++i) row("`" rooms[i] "`", rooms[i])
    row("all", "all")
  }' "$result/coverage.csv"
tools/untaken_branches.py "$result/coverage.json" || unnamed=1
[ "$failed" -eq 0 ] || echo "A test has failed: the figures are those of this run all the same." >&2
[ "$failed" -eq 0 ] && [ "$unnamed" -eq 0 ]
