#!/usr/bin/env bash
# journey.sh EDITOR: uses the real program with the keyboard, on a virtual screen: opens a file,
# changes a value, undoes and redoes it, saves, is asked before changes are lost, and quits.
set -euo pipefail

if [ -z "${JOURNEY_DISPLAY:-}" ]; then
    export JOURNEY_DISPLAY=1
    exec xvfb-run -a -s "-screen 0 1280x800x24" dbus-run-session -- "$0" "$@"
fi

folder="$(mktemp -d)"
export HOME="$folder" XDG_CONFIG_HOME="$folder/config" XDG_RUNTIME_DIR="$folder/run"
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
mkdir -m 700 "$XDG_RUNTIME_DIR"
# The program keeps its working folder beside itself.
cp "$1" "$folder/quillon"
printf '<doc>\r\n  <a>old</a>\r\n</doc>\r\n' >"$folder/my file.xml"

editor=0
trap 'kill "$editor" 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$folder"' EXIT

. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
holds() { grep -qF -- "$2" "$1"; }
ended() { ! kill -0 "$editor" 2>/dev/null; }
has_box() { [ "$(titles | wc -l)" -ge 2 ]; }
# Without a window manager nobody gives the focus back when a box closes.
focus() { xdotool search --onlyvisible --class '^quillon$' windowfocus; }
has_no_box() { [ "$(titles | wc -l)" -eq 1 ]; }

"$folder/quillon" "$folder/my" file.xml &
editor=$!
name="my file.xml"
until_true "the file is opened" titled "$name - Quillon XML Editor"
until_true "a copy is kept" test -n "$(ls "$folder/Temp" 2>/dev/null)"
focus

# Down to the text: doc, a, expand, its text. The label editor takes the new value.
xdotool key Down Down Right Down F2
xdotool type --delay 20 "new"
xdotool key Return
until_true "the change is marked" titled "$name * - Quillon XML Editor"
xdotool key ctrl+z ctrl+y ctrl+s
until_true "saving clears the mark" titled "$name - Quillon XML Editor"
[ "$(cat "$folder/my file.xml")" = "$(printf '<doc>\r\n  <a>new</a>\r\n</doc>\r\n')" ] ||
    fail "the file holds the change and nothing else: $(cat "$folder/my file.xml")"

# A change, then quitting: the question keeps the window, and answering it saves.
xdotool key F2
xdotool type --delay 20 "newer"
xdotool key Return
until_true "the second change is marked" titled "$name * - Quillon XML Editor"
xdotool key alt+f x
until_true "a question comes" has_box
xdotool key Escape
until_true "cancelling keeps the window" has_no_box
titled "$name * - Quillon XML Editor" || fail "the document is still there"
focus
xdotool key alt+f x
until_true "the question comes again" has_box
xdotool key Return
until_true "the program ends" ended
holds "$folder/my file.xml" "<a>newer</a>" || fail "the answer yes saves: $(cat "$folder/my file.xml")"
[ ! -e "$folder/Temp" ] || fail "the working folder is cleared away"

# The session ends right after a change: the next start offers it.
"$folder/quillon" "$folder/my file.xml" &
editor=$!
until_true "the file is opened again" titled "$name - Quillon XML Editor"
focus
xdotool key Down Down Right Down F2
xdotool type --delay 20 "newest"
xdotool key Return
until_true "the last change is marked" titled "$name * - Quillon XML Editor"
kill -TERM "$editor"
until_true "the program ends with the session" ended
holds "$folder/my file.xml" "<a>newer</a>" || fail "the file is as it was"
"$folder/quillon" &
editor=$!
until_true "recovery is offered" has_box
xdotool key Return
until_true "the change is back" titled "$name (復元) * - Quillon XML Editor"
echo "the journey went well"
