#!/usr/bin/env bash
# Lays the folder $3 out, which runs from anywhere: the programs that were built for Windows of the
# sources $1 in $2, every library that they bring along, manual, samples and licences.
set -euo pipefail
source=$(realpath "$1")
build=$(realpath "$2")
folder=$(realpath -m "$3")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
tools/install_missing.sh qt6-translations-l10n binutils-mingw-w64-x86-64
toolkit=${XDG_CACHE_HOME:-$HOME/.cache}/brivon/windows/toolkit
[ -e "$build/manual/manual.html" ] || { echo "There is no manual." >&2 && exit 1; }

mkdir -p "$folder"/{platforms,styles,translations,licenses}
tool() { "x86_64-w64-mingw32-$1" "${@:2}"; }
copy_stripped() { tool strip --strip-all -o "$2/$(basename "$1")" "$1"; }
for program in src/app/brivon virtual_panel/virtual_panel brivonctl/brivonctl; do
  copy_stripped "$build/$program.exe" "$folder"
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

cp -R "$build/manual" "$source/samples/." "$folder"
# Its examples name the ports as they are called here.
sed -i 's|/dev/ttyS1 |COM2 |; s|^;Com2=/dev/ttyUSB0|;Com2=COM12|; \|^;Com3=/dev/|d' \
  "$folder/brivon.ini"
if grep -n /dev/ "$folder/brivon.ini" >&2; then exit 1; fi
for text in LICENSE LICENSES.md CHANGELOG.md; do
  sed 's/$/\r/' "$source/$text" >"$folder/$text.txt"
done
sed "s/@TOOLKIT@/$(cut -d ' ' -f 1 "$toolkit/made_of")/; s/\$/\r/" \
  "$source/packaging/windows/README.txt" >"$folder/README.txt"
cp "$toolkit"/licenses/* "$folder/licenses"
cp /usr/share/doc/qt6-translations-l10n/copyright "$folder/licenses/qt6-translations-l10n.txt"

# Every library that a file of the folder asks for stands in the folder or is one of Windows.
missing=no
files=$(find "$folder" -name '*.exe' -o -name '*.dll')
while read -r file; do
  libraries=$(tool objdump -p "$file" | sed -n 's/^\tDLL Name: //p')
  [ -n "$libraries" ] || { echo "$file asks for no library at all." >&2 && missing=yes; }
  while read -r library; do
    [ ! -e "$folder/$library" ] || continue
    case $library in
      Qt6* | lib*) echo "$file asks for $library, which is not in the folder." >&2 && missing=yes ;;
    esac
  done <<<"$libraries"
done <<<"$files"
[ "$missing" = no ]
