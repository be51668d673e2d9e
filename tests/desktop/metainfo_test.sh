#!/usr/bin/env bash
# What software centres are told is well formed, with and without pictures; its releases are those
# of the change log.
#
#   metainfo_test.sh SOURCE_FOLDER INSTALLED_TREE CMAKE VERSION
set -uo pipefail
. "$1/tests/tools/check.sh"
source=$1/packaging/desktop
tree=$2
cmake=$3
version=$4

# make TEMPLATE OPTION...: what is made of the change log in $scratch, or why nothing is made.
make() {
  local template=$1
  shift
  "$cmake" -DCHANGELOG="$scratch/CHANGELOG.md" -DVERSION=2.41 -DTEMPLATE="$template" \
    -DOUTPUT="$scratch/made.xml" "$@" -P "$source/make_metainfo.cmake" 2>&1 &&
    cat "$scratch/made.xml"
}

echo @BRIVON_RELEASES@ >"$scratch/releases.in"
cat >"$scratch/CHANGELOG.md" <<'LOG'
# Changelog

All notable changes.

## 2.41.0, not yet released

A *first* line.

### Added

- **Files & folders.** Open `a<b>.msg`; see [the manual](docs/manual.md). Nobody
  reads this.
- A plain entry that goes
  on in a second line. And a third sentence.

### Fixed

- **All.** Everything

## 2.40 - 2026-02-28

- First
LOG
expected='  <releases>
    <release version="2.41.0" date="2026-03-01" type="development">
      <description>
        <p>A *first* line.</p>
        <p>Added</p>
        <ul>
          <li>Files &amp; folders. Open <code>a&lt;b&gt;.msg</code>; see the manual.</li>
          <li>A plain entry that goes on in a second line. And a third sentence.</li>
        </ul>
        <p>Fixed</p>
        <ul>
          <li>All. Everything</li>
        </ul>
      </description>
    </release>
    <release version="2.40" date="2026-02-28" type="stable">
      <description>
        <ul>
          <li>First</li>
        </ul>
      </description>
    </release>
  </releases>'
expect "the releases" "$(SOURCE_DATE_EPOCH=1772323200 make "$scratch/releases.in")" "$expected"

says() { make "$scratch/releases.in" "$@" | tr -s '\n ' ' ' | grep -o "$wanted"; }
wanted='begins with 2.41.0, and this is 2.42'
expect "a change log of another version" "$(says -DVERSION=2.42)" "$wanted"
sed -i 's/^## 2.40 .*/## 2.40 (old)/' "$scratch/CHANGELOG.md"
wanted='nor "## VERSION, not yet released": ## 2.40 (old)'
expect "a heading that is none" "$(says)" "$wanted"

command -v appstreamcli >/dev/null || { succeed_without_failures && exit 77; exit 1; }
# judge FILE: only what the judge has against it.
judge() { appstreamcli validate --strict --no-net --no-color "$1" | grep '^[EWI]:'; }

cp "$1/CHANGELOG.md" "$scratch"
for id in Brivon VirtualPanel; do
  id=org.brivon.$id
  installed=$tree/share/metainfo/$id.metainfo.xml
  [ -e "$tree/share/applications/$id.desktop" ] || continue
  expect "$id" "$(judge "$installed")" ""
  expect "$id names releases" "$(grep -c '<release ' "$installed")" \
    "$(grep -c '^## ' "$1/CHANGELOG.md")"
  expect "$id is of one desktop entry" "$(sed -n 's/.*desktop-id">\(.*\)<.*/\1/p' "$installed")" \
    "$id.desktop"
  make "$source/$id.metainfo.xml.in" -DVERSION="$version" \
    -DPICTURES_URL=https://example.org/pictures >"$scratch/$id.metainfo.xml"
  expect "$id with pictures" "$(judge "$scratch/$id.metainfo.xml")" ""
  pictures=$(sed -n 's|.*<image>https://example.org/pictures/\(.*\)</image>|\1|p' \
    "$scratch/$id.metainfo.xml")
  expect "$id names a picture" "$([ -n "$pictures" ] && echo yes)" yes
  for picture in $pictures; do
    expect "$picture of $id" "$(find "$1/docs/pictures" -name "$picture" -printf '%f')" "$picture"
  done
done

succeed_without_failures
