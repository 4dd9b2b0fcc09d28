#!/usr/bin/env bash
# journey.sh EDITOR: uses the real program with the keyboard, on a virtual screen: opens a file,
# changes a value, undoes and redoes it, saves, is asked before changes are lost, and quits.
set -euo pipefail

. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [ $# -eq 1 ]; then
    folder="$(mktemp -d)"
    # The program keeps its working folder beside itself.
    cp "$1" "$folder/quillon"
    on_own_screen "$folder" "$0" "$1" "$folder"
    exit
fi

folder="$2"
printf '<doc>\r\n  <a>old</a>\r\n</doc>\r\n' >"$folder/my file.xml"

editor=0
trap 'kill "$editor" 2>/dev/null || true; wait 2>/dev/null || true' EXIT

holds() { grep -qF -- "$2" "$1"; }
ended() { ! kill -0 "$editor" 2>/dev/null; }
# Without a window manager nobody gives the focus back when a box closes. It fails while a window is
# going, as the splash does.
focus() { xdotool search --onlyvisible --class '^quillon$' windowfocus; }
has_no_box() { [ "$(titles | wc -l)" -eq 1 ]; }
# Keys reach a box only once it has the focus, some time after it is seen.
focus_box() {
    local id
    for id in $(xdotool search --onlyvisible --class '^quillon$'); do
        xprop -id "$id" _NET_WM_WINDOW_TYPE | grep -q DIALOG || continue
        xdotool windowfocus "$id" && [ "$(xdotool getwindowfocus)" = "$id" ]
        return
    done
    return 1
}

"$folder/quillon" "$folder/my" file.xml &
editor=$!
name="my file.xml"
until_true "the file is opened" titled "$name - Quillon XML Editor"
until_true "a copy is kept" compgen -G "$folder/Temp/*.bak"
until_true "the window takes the keyboard" focus

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
until_true "a question comes" focus_box
xdotool key Escape
until_true "cancelling keeps the window" has_no_box
titled "$name * - Quillon XML Editor" || fail "the document is still there"
until_true "the window takes the keyboard" focus
xdotool key alt+f x
until_true "the question comes again" focus_box
xdotool key Return
until_true "the program ends" ended
holds "$folder/my file.xml" "<a>newer</a>" || fail "the answer yes saves: $(cat "$folder/my file.xml")"
[ ! -e "$folder/Temp" ] || fail "the working folder is cleared away"

# The session ends right after a change: the next start offers it.
"$folder/quillon" "$folder/my file.xml" &
editor=$!
until_true "the file is opened again" titled "$name - Quillon XML Editor"
until_true "the window takes the keyboard" focus
xdotool key Down Down Right Down F2
xdotool type --delay 20 "newest"
xdotool key Return
until_true "the last change is marked" titled "$name * - Quillon XML Editor"
kill -TERM "$editor"
until_true "the program ends with the session" ended
holds "$folder/my file.xml" "<a>newer</a>" || fail "the file is as it was"
"$folder/quillon" &
editor=$!
until_true "recovery is offered" focus_box
xdotool key Return
until_true "the change is back" titled "$name (復元) * - Quillon XML Editor"
echo "the journey went well"
