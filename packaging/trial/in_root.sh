#!/usr/bin/env bash
# In the fresh root, as its administrator: installs the packages that lie beside this file, lets an
# operator work with them, removes and purges them, and looks for what they have left. Takes the
# version that they must have. Leaves "ok" in the file status where all went well.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. ./steps.sh

version=$1
operator=signs
home=/home/$operator
kept=$(mktemp -d)

# Everything in the root but what is the operator's, the running system's, and of the packages' own
# administration: what apt and dpkg note down, and caches that come from what is installed.
listing() {
  find / \( -path /proc -o -path /sys -o -path /dev -o -path /run -o -path /tmp -o -path /home \
    -o -path "$PWD" -o -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache/apt \
    -o -path /var/log -o -path /var/cache/man -o -path /var/cache/fontconfig \
    -o -path /var/cache/ldconfig -o -path /etc/ld.so.cache \) -prune -o -type f \
    -printf '%p %m %u:%g %s\n' -o -printf '%p %y %m %u:%g %l\n' | LC_ALL=C sort
}
installed_packages() { dpkg-query -W -f '${db:Status-Abbrev} ${Package} ${Version}\n'; }
operators_files() { find "$home" -type f -exec sha256sum {} + | LC_ALL=C sort -k 2; }
same() { diff "$kept/$1" <("$2"); }

apt_get() { DEBIAN_FRONTEND=noninteractive apt-get -y -q --no-install-recommends "$@"; }
install_packages() { apt_get "$@" ./brivon_*.deb ./brivon-virtual-panel_*.deb; }
package_version() { [ "$(dpkg-query -W -f '${Version}' "$1")" = "$version" ]; }
says() {
  local expected=$1
  shift
  diff <(echo "$expected") <("$@")
}

content_type() { gio info -a standard::content-type "$1" | grep content-type; }
# A system that looks files' types up as file managers do names the file so.
is_type() {
  says "  standard::content-type: $2" content_type "$1" &&
    grep -F "<comment>$3</comment>" "/usr/share/mime/$2.xml" &&
    test -f "/usr/share/icons/hicolor/scalable/mimetypes/${2/\//-}.svg"
}

# A network of his own has no one else's virtual panel, and no way out.
own_network=(unshare --net)
"${own_network[@]}" true 2>/dev/null || own_network=()
operate() {
  # shellcheck disable=SC2016 # the inner shell's own arguments
  "${own_network[@]}" bash -c 'ip link set lo up 2>/dev/null; exec "$@"' - \
    runuser -u "$operator" -- env -i HOME="$home" XDG_RUNTIME_DIR="$home/run" LC_ALL=C.UTF-8 \
    PATH=/usr/local/bin:/usr/bin:/bin bash "$PWD/as_operator.sh" "$1" "$home/pictures" ||
    failed_steps=$((failed_steps + 1))
}

useradd --create-home "$operator"
install -d -o "$operator" -m 700 "$home/run"
listing >"$kept/listing"
installed_packages >"$kept/installed_packages"

echo "-- installed"
step "the packages and what they need are installed" install_packages install
for package in brivon brivon-virtual-panel; do
  step "$package has the version $version" package_version "$package"
done
step "brivonctl says so too" says "brivonctl $version" brivonctl --version
step "virtual_panel says so too" says "virtual_panel $version" virtual_panel --version
for page in brivon.1 brivonctl.1 virtual_panel.1 brivon.ini.5; do
  step "there is the manual page $page" man -w "${page##*.}" "${page%.*}"
done
step "the shell completes brivonctl" bash -c \
  '. /usr/share/bash-completion/completions/brivonctl && complete -p brivonctl'
for file in /usr/share/brivon/messages/*.msg; do
  step "${file##*/} is a Brivon page" is_type "$file" application/x-brivon-page "Brivon page"
done
for file in /usr/share/brivon/schedules/*.sch; do
  step "${file##*/} is a Brivon schedule" is_type "$file" application/x-brivon-schedule \
    "Brivon schedule"
done
for file in /usr/share/brivon/messages/*.srl; do
  step "${file##*/} is a Brivon scrolling message" is_type "$file" \
    application/x-brivon-scrolling-message "Brivon scrolling message"
done

echo "-- an operator's first visit"
operate first

echo "-- installed again, and visited later"
operators_files >"$kept/operators_files"
step "the packages are installed again" install_packages install --reinstall
step "the operator's files are as they were" same operators_files operators_files
operate later
cp "$home"/pictures/*.png pictures/ || true

echo "-- removed"
operators_files >"$kept/operators_files"
step "the packages are removed" apt_get remove brivon brivon-virtual-panel
step "the programs are gone" not command -v brivon brivonctl virtual_panel
step "the packages are purged" dpkg --purge brivon brivon-virtual-panel
step "what came with them goes too" apt_get autoremove --purge
step "no package was left" same installed_packages installed_packages
step "no file was left or changed" same listing listing
step "the operator's files are as they were" same operators_files operators_files
no_step_failed && echo ok >status
