#!/usr/bin/env bash
# Makes build/packages/brivon-VERSION-windows-x86_64.zip, from the sources as they were committed
# last: a folder with the programs and every library that they bring along, which runs from
# anywhere. The first run makes the toolkit too (packaging/windows/toolkit.sh), which takes an hour or
# more.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

toolkit=$(packaging/windows/toolkit.sh)
tools/install_missing.sh git cmark-gfm qt6-translations-l10n binutils-mingw-w64-x86-64
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=brivon-$version-windows-x86_64
# Two builds of the same sources say the same time, whenever they are made.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
# The compiler's options take no path with a blank, which that of the sources may have.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
folder=$work/$name
mkdir -p "$work/source" "$folder"/{platforms,styles,translations,licenses} build/packages
git archive HEAD | tar -x -C "$work/source"

packaging/windows/configure.sh "$work/source" "$work/build" -DCMAKE_BUILD_TYPE=Release \
  -DBUILD_TESTING=OFF "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=$work=."
cmake --build "$work/build" --target brivon virtual_panel brivonctl manual
[ -e "$work/build/manual/manual.html" ] || { echo "There is no manual." >&2 && exit 1; }

tool() { "x86_64-w64-mingw32-$1" "${@:2}"; }
copy_stripped() { tool strip --strip-all -o "$2/$(basename "$1")" "$1"; }
for program in src/app/brivon virtual_panel/virtual_panel brivonctl/brivonctl; do
  copy_stripped "$work/build/$program.exe" "$folder"
done
for module in Core Gui Network Widgets; do
  copy_stripped "$toolkit/bin/Qt6$module.dll" "$folder"
done
copy_stripped "$toolkit/plugins/platforms/qwindows.dll" "$folder/platforms"
copy_stripped "$toolkit/plugins/styles/qwindowsvistastyle.dll" "$folder/styles"
for library in libgcc_s_seh-1 libstdc++-6 libwinpthread-1; do
  file=$(x86_64-w64-mingw32-g++-posix -print-file-name="$library.dll")
  copy_stripped "$file" "$folder"
done
cp /usr/share/qt6/translations/qtbase_*.qm "$folder/translations"
printf '[Paths]\r\nPrefix=.\r\nPlugins=.\r\nTranslations=translations\r\n' >"$folder/qt.conf"

cp -R "$work/build/manual" "$work/source/samples/." "$folder"
for text in LICENSE LICENSES.md CHANGELOG.md; do
  sed 's/$/\r/' "$work/source/$text" >"$folder/$text.txt"
done
sed "s/@TOOLKIT@/$(cut -d ' ' -f 1 "$toolkit/made_of")/; s/\$/\r/" \
  "$work/source/packaging/windows/README.txt" >"$folder/README.txt"
cp "$toolkit"/licenses/* "$folder/licenses"
cp /usr/share/doc/qt6-translations-l10n/copyright "$folder/licenses/qt6-translations-l10n.txt"

# Every library that a file of the folder asks for stands in the folder or is one of Windows.
missing=no
while read -r file; do
  while read -r library; do
    [ ! -e "$folder/$library" ] || continue
    case $library in
      Qt6* | lib*) echo "$file asks for $library, which is not in the folder." >&2 && missing=yes ;;
    esac
  done < <(tool objdump -p "$file" | sed -n 's/^\tDLL Name: //p')
done < <(find "$folder" -name '*.exe' -o -name '*.dll')
[ "$missing" = no ]

(
  cd "$work"
  find "$name" -type f | LC_ALL=C sort >files
  cmake -E tar cf "$name.zip" --format=zip "--mtime=@$SOURCE_DATE_EPOCH" --files-from=files
)
mv "$work/$name.zip" build/packages/
ls -l "build/packages/$name.zip"
