# An operator's hands and eyes on a display, to be sourced behind steps.sh. Pictures go into the
# folder `pictures` of the caller.
# shellcheck shell=bash

# Waits until the window of that title has the keyboard.
window() { soon has_keyboard "$1"; }
has_keyboard() { [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]; }

press() { xdotool key --delay 60 "$@"; }
# opens KEY TITLE: presses the key that opens the window of that title, and once more where it was
# lost because the program had yet to hear that its window has the keyboard.
opens() {
  local from
  from=$(xdotool getactivewindow getwindowname)
  for _ in 1 2; do
    if has_keyboard "$from"; then press "$1"; fi
    if window "$2"; then return 0; fi
  done
  return 1
}
write() { xdotool type --delay 30 "$1"; }
picture() { scrot --overwrite "${pictures:?}/$1.png"; }

desktop_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
# The message of the dialog $2 has its title $1 too, but is another window.
message_has_keyboard() {
  windows_called "$1" 2 && [ "$(xdotool getactivewindow 2>/dev/null)" != "$2" ]
}
dialog_has_keyboard() {
  windows_called "$1" 1 && [ "$(xdotool getactivewindow 2>/dev/null)" = "$2" ]
}
windows_called() { [ "$(xdotool search --onlyvisible --name "^$1\$" | wc -l)" -eq "$2" ]; }
file_is() { [ -f "$1" ] && cmp "$1" <(printf '%b' "$2"); }
ended() { ! kill -0 "$1" 2>/dev/null; }
