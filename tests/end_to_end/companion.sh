#!/usr/bin/env bash
# companion.sh EDITOR COMPANION: two real editor windows under a window manager; the companion that
# the first one starts puts them side by side, and ends with them.
set -euo pipefail

. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [ $# -eq 2 ]; then
    folder="$(mktemp -d)"
    cp "$1" "$folder/quillon"
    cp "$2" "$folder/QuillonDDE"
    on_own_screen "$folder" "$0" "$1" "$2" "$folder"
    exit
fi

folder="$3"
name=org.quillon.QuillonEditDDE
title="Quillon XML Editor"
printf '<doc/>' >"$folder/one.xml"
printf '<doc/>' >"$folder/two.xml"
processes=()
trap 'kill "${processes[@]}" 2>/dev/null || true; wait 2>/dev/null || true' EXIT

# The search fails when a window goes meanwhile, as the splash does.
found=""
finds() { found="$(xdotool search --onlyvisible --name "^$1 - $title\$")"; }
execute() {
    gdbus call --session --dest "$name" --object-path /System --method "$name.Execute" "$1"
}
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q '#'; }
maximized() { xprop -id "$1" _NET_WM_STATE | grep -q MAXIMIZED_VERT; }
minimized() { xprop -id "$1" WM_STATE | grep -q Iconic; }
# outer ID: left edge, top edge, width and height of a window with its frame.
outer() {
    local frame X Y WIDTH HEIGHT left right top bottom
    eval "$(xdotool getwindowgeometry --shell "$1" | grep -E '^(WIDTH|HEIGHT)=')"
    read -r X Y < <(xwininfo -id "$1" | awk '/Absolute upper-left/ { print $4 }' | xargs)
    frame="$(xprop -id "$1" -notype _NET_FRAME_EXTENTS | sed -n 's/.*= //p' | tr -d ,)"
    read -r left right top bottom <<<"${frame:-0 0 0 0}"
    echo "$((X - left)) $((Y - top)) $((WIDTH + left + right)) $((HEIGHT + top + bottom))"
}
gone() { ! xprop -id "$1"; }
stands() { [ "$(outer "$1")" = "$2" ]; }

until_true "the display answers" xprop -root
openbox &
processes+=($!)
until_true "the window manager runs" managed
"$folder/quillon" "$folder/one.xml" &
first=$!
processes+=("$first")
until_true "the first window" finds one.xml
one="$found"
until_true "the companion runs" owned "$name"
"$folder/quillon" "$folder/two.xml" &
second=$!
processes+=("$second")
until_true "the second window" finds two.xml
two="$found"

# A second companion finds the name taken and ends; unknown commands do nothing.
"$folder/QuillonDDE" || fail "a second companion ends well"
execute "QUIT" >/dev/null

# A double click on its title maximises a window.
read -r left top _ _ <<<"$(outer "$one")"
xdotool windowactivate --sync "$one" mousemove "$((left + 200))" "$((top + 8))" click --repeat 2 --delay 50 1
until_true "the first window is maximised" maximized "$one"
xdotool windowminimize "$two"
until_true "the second window is minimised" minimized "$two"
execute "TILE_VERTICAL" >/dev/null
until_true "the first window has the left half" stands "$one" "0 0 640 800"
until_true "the second window has the right half" stands "$two" "640 0 640 800"

kill -KILL "$second"
until_true "the server has noticed the death" gone "$two"
execute "TILE_VERTICAL" >/dev/null
until_true "a window that died leaves its place" stands "$one" "0 0 1280 800"
xdotool windowfocus --sync "$one" key alt+f x
wait "$first" || fail "the editor ends well"
until_true "the companion ends with the last window" not_owned "$name"
echo "the companion works"
