#!/usr/bin/env bash
# Goes an operator's way with the programs for Windows, under Wine on a virtual display: unpacks the
# archive of build.sh (or copies the folder $1, as folder.sh lays it out), presses keys, sends pages
# over TCP and over a serial line to the virtual panel, reads in its record what has arrived, and
# logs off. The pictures of the way go into build/windows_pictures/. Takes a minute or two.
set -euo pipefail
given=
[ -z "${1:-}" ] || given=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. packaging/trial/steps.sh
. packaging/trial/hands.sh

tools/install_missing.sh wine wine64 xvfb xdotool openbox x11-utils scrot socat jq unzip \
  fonts-dejavu-core
version=$(sed -n 's/^project(Brivon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
archive=$PWD/build/packages/brivon-$version-windows-x86_64.zip
pictures=$PWD/build/windows_pictures
mkdir -p "$pictures"
work=$(mktemp -d)
# Wine finds no folder whose name its characters lack.
export LC_ALL=C.UTF-8
export WINEPREFIX=$work/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="

end() {
  wineserver -k 2>/dev/null || true
  # shellcheck disable=SC2046 # a number a word
  kill $(jobs -p) 2>/dev/null || true
  wait || true
  rm -rf "$work" "$said_soon"
}
trap end EXIT

# The folder's name and place are the operator's to choose.
folder=$work/wine/drive_c/наши\ табло
on_windows='C:\наши табло'
lay_folder_out() {
  if [ -n "$given" ]; then
    cp -R "$given" "$folder"
  else
    unzip -q "$archive" -d "$work/unpacked" && mv "$work/unpacked/"*/ "$folder"
  fi
}

# Else it begins anew when its first caller leaves, and throws out whoever has come meanwhile.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$work/display" >/dev/null 2>&1 &
step "there is a display" soon test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
step "it has a desktop" soon desktop_runs

# The fonts that Windows always has are not there.
name_fonts() {
  local font
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "Courier New" /d "Liberation Mono" /f ||
    return 1
  for font in "MS Shell Dlg" "MS Shell Dlg 2" "Segoe UI" Tahoma "MS Sans Serif"; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /d "DejaVu Sans" /f || return 1
  done
}
step "there is a system" wineboot -i
step "it has a font" name_fonts
# Nor is there a browser.
name_browser() {
  wine reg add 'HKCR\.html' /ve /d htmlfile /f &&
    wine reg add 'HKCR\htmlfile\shell\open\command' /ve /d 'winebrowser.exe "%1"' /f
}
step "it has what opens a page of the manual" name_browser
wineserver -k || true
wineserver -w
# In the background it would take a serial line for its own terminal, and end with it.
wineserver -f -p >/dev/null 2>&1 &
# The system's own programs, which the first program starts, keep what it writes to open.
wine cmd /c exit >/dev/null 2>&1

step "the folder is unpacked" lay_folder_out
cd "$folder"

# What a page of the manual is opened with in the end notes down which.
mkdir "$work/bin"
# shellcheck disable=SC2016 # its own argument
printf '#!/bin/sh\necho "$1" >>"%s"\n' "$work/opened" >"$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
export PATH=$work/bin:$PATH
opens_manual() { tail -n 1 "$work/opened" | grep 'manual/chapters/the-launcher.html$'; }

# Its two ends are ports of two programs.
socat "pty,rawer,link=$work/one_end" "pty,rawer,link=$work/other_end" &
ends_are_there() { [ -e "$work/one_end" ] && [ -e "$work/other_end" ]; }
step "there is a serial line" soon ends_are_there
name_ports() {
  ln -sfn "$(realpath "$work/one_end")" "$WINEPREFIX/dosdevices/com12" &&
    ln -sfn "$(realpath "$work/other_end")" "$WINEPREFIX/dosdevices/com13"
}
step "its ends are COM12 and COM13" name_ports

said_ready() { grep -q '^ready' "$work/panel-says"; }
# The first row of a page that panel 1 holds.
row_arrived() { [ "$(jq -r ".panels[0].pages[\"$1\"][\"1\"]" panels.json)" = "$2" ]; }
scrolls() { jq -e '.panels[0].scrolling | length > 0' panels.json; }
# What a program of Windows says, in the line ends of this system.
says() { wine "$@" 2>&1 | tr -d '\r'; }
says_line() { says "${@:2}" | grep -Fx -e "$1"; }
ctl_sends() { wine brivonctl.exe "$@" --to 1 --quiet; }

panel=
start_panel() {
  wine virtual_panel.exe --panel 1:4x96:tri --state panels.json "$@" >"$work/panel-says" 2>&1 &
  panel=$!
}
end_panel() {
  wine taskkill /im virtual_panel.exe && soon ended "$panel"
}

# "COM12" and its mode in brivon.ini, as the operator would set them in a text editor.
send_over() { sed -i "s/^SendMode=.*/SendMode=$1\r/; s/^ComPort=.*/ComPort=12\r/" brivon.ini; }
listens_on() { sed -n 's/\r$//; s/^listening on tcp 127.0.0.1://p' "$work/panel-says"; }
page="*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n"
page+="<L01><SA><CA>Hello, everyone\r\n<L02>\r\n<L03>\r\n<L04>\r\n"
welcome=$(sed -n 's/\r$//; s/^<L01>//p' messages/welcome.msg)

start_brivon() {
  wine brivon.exe >"$work/brivon-says" 2>&1 &
  brivon=$!
  step "Brivon has its window" window "Brivon V.M.2.41M"
}
end_brivon() {
  local status=0
  press alt+e
  step "\"Exit\" ends Brivon" soon ended "$brivon"
  wait "$brivon" || status=$?
  step "without a fault" test "$status" -eq 0
}

# From the launcher: opens the page welcome.msg and begins to send it as page $1; `dialog` is the
# dialog's window.
begin_welcome() {
  step "\"Message\" opens the page editor" opens alt+m "Message Editor"
  step "\"Open\" asks for a page" opens ctrl+o "Open Message"
  picture "open_message_$1"
  write 'messages\welcome.msg'
  press Return
  step "and leads back" window "Message Editor"
  step "\"Send\" opens its dialog" opens ctrl+Return "Send Message"
  dialog=$(xdotool getactivewindow || true)
  press Home Tab
  write "$1"
  press ctrl+Return
}

# Back to the launcher, from the message about what was sent.
leave_message() {
  press Return
  step "the message is closed" soon dialog_has_keyboard "Send Message" "$dialog"
  press Escape
  step "the dialog is closed" window "Message Editor"
  press Escape
  step "the editor is closed" window "Brivon V.M.2.41M"
}

send_welcome() {
  begin_welcome "$1"
  step "the panel has the page" soon row_arrived "$1" "$welcome "
  step "a message says so" soon message_has_keyboard "Send Message" "$dialog"
  picture "page_$1_sent"
  leave_message
  picture "panel_shows_page_$1"
}

echo "-- over the network"
step "brivonctl says its version" says_line "brivonctl $version" brivonctl.exe --version
start_panel --tcp 127.0.0.1:0
step "the virtual panel is ready" soon said_ready
step "it has its window" window "Virtual panel"
sed -i "s/^\(ID001=.*\):2101/\1:$(listens_on)/" brivon.ini
step "brivonctl names the folder" says_line "folder: $on_windows" brivonctl.exe list
step "brivonctl takes a page for one" wine brivonctl.exe check 'messages\lane_closed.msg'
step "brivonctl shows it" wine brivonctl.exe show 'messages\lane_closed.msg'
step "brivonctl sends it" ctl_sends send page "$on_windows\\messages\\lane_closed.msg" --page 9
step "the panel has it" soon row_arrived 9 "<SC><CA>LANE 2 CLOSED "

start_brivon
picture launcher
press F1
step "F1 opens the manual" soon opens_manual
step "\"Message\" opens the page editor" opens alt+m "Message Editor"
step "\"New\" asks for the size" opens ctrl+n "New"
press Return
step "and leads back" window "Message Editor"
write "Hello, everyone"
picture page_editor
step "\"Save As\" asks for the name" opens ctrl+shift+s "Save As"
picture save_as
write "hello.msg"
press Return
step "the page is saved in the program's folder" soon file_is hello.msg "$page"
step "and the editor is there again" window "Message Editor"
press Escape
step "the editor is closed" window "Brivon V.M.2.41M"
send_welcome 7

# Every other window of the launcher, for its picture.
look_at() {
  step "\"$2\" opens" opens "$1" "$2"
  picture "$3"
  press Escape
  step "and closes" window "Brivon V.M.2.41M"
}
look_at alt+s "Schedule" schedule_editor
look_at alt+r "Scrolling Message" scrolling_editor
look_at alt+c "Configuration" config
look_at alt+o "Command" command
end_brivon
step "the panel ends when it is told to" end_panel

echo "-- at a panel that talks without end"
start_panel --tcp 127.0.0.1:0 --fault flood
step "the panel is ready" soon said_ready
sed -i "s/^\(ID001=.*127.0.0.1\):[0-9]*/\1:$(listens_on)/" brivon.ini
start_brivon
begin_welcome 6
begun=$SECONDS
step "it is given up" soon message_has_keyboard "Send Message" "$dialog"
step "after its attempts and no later" test $((SECONDS - begun)) -lt 9
picture "flooded"
leave_message
begin_welcome 6
sleep 1
begun=$SECONDS
press Escape
step "\"Stop\" ends it" soon message_has_keyboard "Send Message" "$dialog"
step "at once" test $((SECONDS - begun)) -lt 3
picture "flooded_and_stopped"
leave_message
end_brivon
step "the panel ends when it is told to" end_panel

echo "-- over a serial line"
send_over RS232
start_panel --serial COM13
step "the panel is ready at COM13" soon said_ready
step "brivonctl names the port" eval 'says brivonctl.exe list | grep -F COM12'
step "brivonctl sends a page" ctl_sends send page 'messages\lane_closed.msg' --page 9
step "the panel has it" soon row_arrived 9 "<SC><CA>LANE 2 CLOSED "
step "brivonctl sends a scrolling message" ctl_sends send scrolling 'messages\roadworks.srl' \
  --line 2
step "the panel has it" soon scrolls
start_brivon
send_welcome 8
end_brivon
step "the panel ends when it is told to" end_panel

echo "-- the operator logs off"
start_brivon
step "\"Message\" opens the page editor" opens alt+m "Message Editor"
editor=$(xdotool getactivewindow || true)
step "\"New\" asks for the size" opens ctrl+n "New"
press Return
step "and leads back" window "Message Editor"
write "Not saved"
wine wineboot --end-session >/dev/null 2>&1 &
step "what is not saved is asked about" soon message_has_keyboard "Message Editor" "$editor"
picture log_off
press Escape
step "\"Cancel\" leads back" soon dialog_has_keyboard "Message Editor" "$editor"
step "and Brivon goes on" not ended "$brivon"
wine wineboot --end-session >/dev/null 2>&1 &
step "it asks once more" soon message_has_keyboard "Message Editor" "$editor"
press alt+n
step "\"No\" lets Brivon end" soon ended "$brivon"
# The system has ended it.
wait "$brivon" 2>/dev/null || true
step "the page is not saved" not test -e NEW.MSG
no_step_failed
