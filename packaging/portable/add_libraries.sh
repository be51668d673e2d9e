#!/usr/bin/env bash
# Adds to a folder with Brivon's programs what they need of this system: the toolkit's plug-ins and
# translations, every library except those of hosts_libraries.txt, and the licences of all that.
#
#   add_libraries.sh FOLDER
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$1"

# Without pictures of other formats, encrypted lines, printers and OpenGL, which no window uses.
# Dead keys and the input of East Asian text come through the input contexts.
plugins=(
  platforms/libqxcb.so platforms/libqoffscreen.so
  platforminputcontexts/libcomposeplatforminputcontextplugin.so
  platforminputcontexts/libibusplatforminputcontextplugin.so
)
toolkit() { qtpaths6 --query "$1"; }

for plugin in "${plugins[@]}"; do
  install -D -m 644 "$(toolkit QT_INSTALL_PLUGINS)/$plugin" "lib/plugins/$plugin"
done
mkdir -p lib/translations licences
cp "$(toolkit QT_INSTALL_TRANSLATIONS)"/qt{base,serialport}_*.qm lib/translations/
cat >qt.conf <<'CONF'
[Paths]
Prefix=lib
Plugins=plugins
Translations=translations
CONF

needed_by() { objdump -p "$1" | sed -n 's/^ *NEEDED *//p'; }
is_hosts() { grep -qxF -- "${1%%.so*}" "$here/hosts_libraries.txt"; }

# Where the system has each library, that of the programs and of the plug-ins. The programs would
# find those of the folder, which are not there yet.
declare -A place
while read -r library _ file _; do
  place[$library]=$file
done < <(ldd brivon virtual_panel brivonctl lib/plugins/*/*.so | grep '=> /')

# What is added may itself need more.
waiting=(brivon virtual_panel brivonctl lib/plugins/*/*.so)
while [ ${#waiting[@]} -gt 0 ]; do
  file=${waiting[0]}
  waiting=("${waiting[@]:1}")
  for library in $(needed_by "$file"); do
    if is_hosts "$library" || [ -e "lib/$library" ]; then continue; fi
    # By the name it is looked for, so that no link is needed: a stick may know none.
    install -m 644 "${place[$library]}" "lib/$library"
    waiting+=("lib/$library")
  done
done

# The package of a file, which may be known by its path from before /lib and /usr/lib were one.
package_of() {
  local file
  file=$(realpath "$1")
  dpkg-query -S "$file" 2>/dev/null || dpkg-query -S "${file#/usr}"
}

# The licences, and the general ones that they point to.
list() {
  local file package
  for library in lib/*.so*; do
    printf '%s\t%s\n' "$library" "${place[${library#lib/}]}"
  done
  for plugin in lib/plugins/*/*.so; do
    printf '%s\t%s\n' "$plugin" "$(toolkit QT_INSTALL_PLUGINS)/${plugin#lib/plugins/}"
  done
  printf '%s\t%s\n' lib/translations "$(toolkit QT_INSTALL_TRANSLATIONS)/qtbase_de.qm" \
    "in brivonctl" /usr/include/CLI/CLI.hpp
}
{
  echo "What of Debian's packages lies in this folder, unchanged. Each package's licences stand in the file"
  echo "PACKAGE.txt, the general ones that it points to in general/. The sources of every package are"
  echo "Debian's, by the name and version of the source. Each library may be replaced by another build of it."
  echo
  printf '%-75s %-28s %s\n' FILE PACKAGE "SOURCE AND VERSION"
  list | while IFS=$'\t' read -r name file; do
    package=$(package_of "$file" | sed 's/: .*//')
    read -r source version < <(dpkg-query -W -f='${source:Package} ${source:Version}\n' "$package")
    if ! grep -q "^|.*\`$source\`.*|.*|.*|$" "$here/../../LICENSES.md"; then
      echo "LICENSES.md does not say what $source is, which $name is from." >&2
      exit 1
    fi
    printf '%-75s %-28s %s\n' "$name" "${package%:*}" "$source $version"
    cp -L "/usr/share/doc/${package%:*}/copyright" "licences/${package%:*}.txt"
  done
} >licences/CONTENTS.txt
mkdir licences/general
grep -ohE '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' licences/*.txt | sort -u |
  while read -r general; do cp -L "$general" licences/general/; done
