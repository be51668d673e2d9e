#!/usr/bin/env bash
# Lets a plain user of the system in ROOT unpack the portable folder ARCHIVE to a stick, start its
# programs on a display of that system, and send a page. Looks at what they load and write.
#
#   try_in.sh ROOT ARCHIVE PICTURES
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$1
archive=$2
pictures=$3
home=/home/clerk
stick="$home/USB stick"
name=$(basename "$archive" .tar.xz)
says=$root/says
mkdir "$says"

failed=0
step() {
  local what=$1
  shift
  if "$@"; then echo "ok    $what"; else echo "WRONG $what" && failed=$((failed + 1)); fi
}
# A command that says "no": the status of one that could not be carried out is another.
not() {
  local status=0
  "$@" || status=$?
  [ "$status" -eq 1 ]
}
# Waits up to half a minute until a command succeeds.
soon() {
  local i
  for ((i = 0; i < 150; ++i)); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.2
  done
  return 1
}

mount -t proc proc "$root/proc"
chroot "$root" useradd --create-home clerk
mkdir "$root$stick"
tar -xJf "$archive" --no-same-owner -C "$root$stick"
chroot "$root" chown -R clerk: "$stick"

# As each desktop has it.
mkdir -p "$root/run/user/1000"
chmod 700 "$root/run/user/1000"
chroot "$root" chown clerk: /run/user/1000
operator=(chroot --userspec=clerk "$root" env -i HOME="$home" LANG=C.UTF-8 PATH=/usr/bin:/bin
  XDG_RUNTIME_DIR=/run/user/1000)

# The display is the fresh system's; what presses its keys is ours, so that it brings nothing there.
"${operator[@]}" Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$says/display" \
  >/dev/null 2>&1 &
trap 'kill $(jobs -p) 2>/dev/null || true' EXIT
step "there is a display" soon test -s "$says/display"
DISPLAY=:$(cat "$says/display")
export DISPLAY
operator+=(DISPLAY="$DISPLAY")
openbox >/dev/null 2>&1 &
desktop_runs() { xdotool get_num_desktops; }
step "it has a desktop" soon desktop_runs
touch "$root/began"

# The folder's own name is the operator's to choose.
folder="$stick/our panels"
mv "$root$stick/$name" "$root$folder"
step "the folder has no links, which a stick may not know" \
  test -z "$(find "$root$folder" -type l)"
for program in brivonctl virtual_panel; do
  said=$("${operator[@]}" "$folder/$program" --version)
  step "$program says its version" test "$said" = "$program $(cut -d- -f2 <<<"$name")"
done

"${operator[@]}" "$folder/virtual_panel" --panel 1:4x96:tri --tcp 127.0.0.1:0 --state "$folder/panels.json" \
  >"$says/panel" 2>&1 &
panel=$!
step "the virtual panel is ready" soon grep -qx ready "$says/panel"
port=$(sed -n 's/^listening on tcp 127.0.0.1://p' "$says/panel")
sed -i "s/^\(ID001=.*\):2101/\1:$port/" "$root$folder/brivon.ini"
step "brivonctl sends a page to it" "${operator[@]}" "$folder/brivonctl" send page \
  "$folder/messages/lane_closed.msg" --page 7 --to 1 --quiet
step "the panel has the page" soon grep -q 'LANE 2 CLOSED' "$root$folder/panels.json"

"${operator[@]}" "$folder/brivon" >"$says/brivon" 2>&1 &
brivon=$!
active() { xdotool getactivewindow getwindowname; }
window() { [ "$(active)" = "$1" ]; }
# opens KEY TITLE: presses the key that opens the window of that title, and once more where it was
# lost because the program had yet to hear that its window has the keyboard.
opens() {
  local from
  from=$(active)
  for _ in 1 2; do
    if window "$from"; then xdotool key "$1"; fi
    if soon window "$2"; then return 0; fi
  done
  return 1
}
step "Brivon has its window" soon window "Brivon V.M.2.41M"
step "the page editor opens" opens alt+m "Message Editor"
step "its file dialog opens" opens ctrl+o "Open Message"
import -window root "$pictures/file_dialog.png"
xdotool type messages/welcome.msg
xdotool key Return
step "a page is open" soon window "Message Editor"
step "\"Send\" opens its dialog" opens ctrl+Return "Send Message"
dialog=$(xdotool getactivewindow || true)
xdotool key Home Tab 9 ctrl+Return
step "the panel has this page too" soon grep -q 'safely!' "$root$folder/panels.json"
windows_called() { [ "$(xdotool search --onlyvisible --name "^$1\$" | wc -l)" -eq "$2" ]; }
# The message has the dialog's title, but is another window.
message_active() { windows_called "Send Message" 2 && [ "$(xdotool getactivewindow)" != "$dialog" ]; }
dialog_active() { windows_called "Send Message" 1 && [ "$(xdotool getactivewindow)" = "$dialog" ]; }
step "a message says so" soon message_active
import -window root "$pictures/sent.png"

# The system's own libraries and what those need themselves, without the numbers of their versions.
libraries_of_system() {
  local library files
  mapfile -t files < <(
    grep -v -e '^#' -e '^$' "$here/hosts_libraries.txt" | while read -r library; do
      find "$root/usr/lib" "$root/usr/lib64" -maxdepth 2 -name "$library.so*"
    done
  )
  printf '%s\n' "${files[@]}"
  chroot "$root" ldd "${files[@]#"$root"}" 2>/dev/null | awk '/^\t/ {print $1}'
}
names() { sed 's|.*/||; s|\.so.*||' | sort -u; }
libraries_of_system | names >"$says/system"
# What the folder brings, because its files need it.
find "$root$folder" -type f \( -name '*.so*' -o -perm /100 \) -exec objdump -p {} + 2>/dev/null |
  sed -n 's/^ *NEEDED *//p' | names | grep -vxFf "$here/hosts_libraries.txt" >"$says/brought"
# Of paths on the standard input those of libraries that are neither the folder's nor the system's.
strange() {
  local path library
  grep '\.so' | sort -u | while read -r path; do
    path=${path#"$root"}
    library=$(names <<<"$path")
    case $path in
      "$folder"/*) ;;
      *)
        if ! grep -qxF "$library" "$says/system" || grep -qxF "$library" "$says/brought"; then
          echo "      $path"
        fi
        ;;
    esac
  done | grep .
}
mapped() { sed -n 's|^[^/]*\(/.*\)$|\1|p' "/proc/$1/maps"; }
traced() {
  "${operator[@]}" LD_TRACE_LOADED_OBJECTS=1 "$folder/brivonctl" | sed -n 's|.*=> \(/.*\) (.*|\1|p'
}
step "Brivon loads nothing else" not strange < <(mapped "$brivon")
step "the virtual panel loads nothing else" not strange < <(mapped "$panel")
step "brivonctl loads nothing else" not strange < <(traced)
has_toolkit() { grep -F "$folder/lib/libQt6Core.so.6" >/dev/null; }
step "Brivon loads the folder's toolkit" has_toolkit < <(mapped "$brivon")
step "the virtual panel loads it too" has_toolkit < <(mapped "$panel")
step "brivonctl loads it too" has_toolkit < <(traced)

xdotool key Return
step "the message closes" soon dialog_active
xdotool key Escape
step "the dialog closes" soon window "Message Editor"
xdotool key Escape
step "the editor closes" soon window "Brivon V.M.2.41M"
xdotool key alt+e
ended() { ! kill -0 "$1" 2>/dev/null; }
ends_well() { soon ended "$1" && wait "$1"; }
step "\"Exit\" ends Brivon, without a fault" ends_well "$brivon"
kill "$panel" || true
step "the virtual panel ends when it is told to, without a fault" ends_well "$panel"
step "neither has complained" not grep -v -e '^listening on ' -e '^ready$' "$says/panel" "$says/brivon"

# What was written since, but in the folder.
written() {
  find "$root" -xdev -newer "$root/began" ! -type d ! -path "$root$folder/*" ! -path "$says/*" \
    ! -path "$root/tmp/.X*" -printf '      /%P\n' | grep -v "^      $home/.config/QtProject.conf$"
}
step "nothing is written elsewhere but the file dialogs' habits" not written
step "these are" test -e "$root$home/.config/QtProject.conf"

[ "$failed" -eq 0 ]
