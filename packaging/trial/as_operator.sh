#!/usr/bin/env bash
# An operator's way with the installed programs, in the fresh root, as a plain user on a virtual
# display: the entries of the desktop's menu start the programs, keys are pressed, and the virtual
# panel's record says what has arrived. Takes "first" or "later" (whether the operator has started
# Brivon before) and the folder that gets the pictures.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. ./steps.sh
. ./hands.sh

visit=$1
pictures=$2
folder=$HOME/.local/share/brivon
installed=/usr/share/brivon
record=$HOME/panels.json
opened=$HOME/opened
chapter=$installed/manual/chapters/the-launcher.html
page="*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n"
page+="<L01><SA><CA>Hello, everyone\r\n<L02>\r\n<L03>\r\n<L04>\r\n"
export DISPLAY=:9

# What the desktop opens a page with writes the page's address down.
mkdir -p "$HOME/bin" "$pictures"
cat >"$HOME/bin/browser" <<BROWSER
#!/bin/sh
echo "\$1" >>"$opened"
BROWSER
chmod +x "$HOME/bin/browser"
export BROWSER=$HOME/bin/browser

trap 'kill $(jobs -p) 2>/dev/null || true' EXIT

# from_menu ENTRY OPTION...: becomes the program that the menu's entry starts.
from_menu() {
  local command
  read -ra command < <(sed -n 's/^Exec=//p' "/usr/share/applications/$1.desktop")
  exec "${command[@]}" "${@:2}"
}

said_ready() { grep -qx ready "$HOME/panel-says"; }
has_opened() { [ -f "$opened" ] && [ "$(tail -n 1 "$opened")" = "$1" ]; }
# The first row of a page that panel 1 holds.
row_arrived() { [ "$(jq -r ".panels[0].pages[\"$1\"][\"1\"]" "$record")" = "$2" ]; }
brivonctl_names_folder() { [ "$(brivonctl list | head -n 1)" = "folder: $folder" ]; }

as_installed() {
  local part
  for part in brivon.ini messages schedules languages; do
    diff -r "$installed/$part" "$folder/$part" || return 1
  done
}

# Else it begins anew when its first caller leaves, and throws out whoever has come meanwhile.
Xvfb "$DISPLAY" -screen 0 1600x1200x24 -nolisten tcp -noreset >/dev/null 2>&1 &
step "there is a display" soon xdpyinfo
openbox >/dev/null 2>&1 &
step "it has a desktop" soon desktop_runs

from_menu org.brivon.VirtualPanel --state "$record" >"$HOME/panel-says" 2>&1 &
panel=$!
step "the menu's virtual panel is ready" soon said_ready
step "it has its window" soon windows_called "Virtual panel" 1

from_menu org.brivon.Brivon >"$HOME/brivon-says" 2>&1 &
brivon=$!
step "the menu's Brivon has its window" window "Brivon V.M.2.41M"
picture "launcher-$visit"

# The way from a new page to the panel.
first_page() {
  step "the folder was laid out as it is installed" as_installed
  press F1
  step "F1 opens the installed manual" soon has_opened "file://$chapter"
  step "which is there" test -f "$chapter"

  step "\"Message\" opens the page editor" opens alt+m "Message Editor"
  step "\"New\" asks for the size" opens ctrl+n "New"
  press Return
  step "and leads back" window "Message Editor"
  write "Hello, everyone"
  step "\"Save As\" asks for the name" opens ctrl+shift+s "Save As"
  write "hello.msg"
  press Return
  step "the page is saved in the operator's folder" soon file_is "$folder/hello.msg" "$page"
  step "and the editor is there again" window "Message Editor"
  step "\"Send\" opens its dialog" opens ctrl+Return "Send Message"
  dialog=$(xdotool getactivewindow || true)
  press Home Tab
  write "7"
  press ctrl+Return
  step "the panel has the page" soon row_arrived 7 "<SA><CA>Hello, everyone "
  step "a message says so" soon message_has_keyboard "Send Message" "$dialog"
  picture page_sent
  press Return
  step "the message is closed" soon dialog_has_keyboard "Send Message" "$dialog"
  press Escape
  step "the dialog is closed" window "Message Editor"
  press Escape
  step "the editor is closed" window "Brivon V.M.2.41M"
  picture panel_shows_page

  step "brivonctl uses the operator's folder" brivonctl_names_folder
  step "brivonctl sends a page" brivonctl send page "$folder/messages/lane_closed.msg" \
    --page 9 --to 1 --quiet
  step "the panel has it" soon row_arrived 9 "<SC><CA>LANE 2 CLOSED "
}

# What the operator has done to the folder, which nothing takes back.
change_folder() {
  sed -i 's/^Delay Period=300/Delay Period=301/' "$folder/brivon.ini"
  printf 'mine\r\n' >"$folder/messages/welcome.msg"
  rm "$folder/messages/roadworks.srl"
}
folder_kept() {
  grep -q '^Delay Period=301' "$folder/brivon.ini" && file_is "$folder/hello.msg" "$page" &&
    file_is "$folder/messages/welcome.msg" "mine\r\n" &&
    [ ! -e "$folder/messages/roadworks.srl" ]
}

if [ "$visit" = first ]; then
  first_page
  change_folder
else
  step "what the operator has changed in the folder stays" folder_kept
fi

press alt+e
step "\"Exit\" ends Brivon" soon ended "$brivon"
wait "$brivon" && status=0 || status=$?
step "without a fault" test "$status" -eq 0
kill "$panel"
step "the virtual panel ends when it is told to" soon ended "$panel"
wait "$panel" && status=0 || status=$?
step "without a fault" test "$status" -eq 0
step "neither has complained" not grep -v -e '^listening on ' -e '^ready$' \
  "$HOME/panel-says" "$HOME/brivon-says"
no_step_failed
