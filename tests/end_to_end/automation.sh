#!/usr/bin/env bash
# automation.sh BUILD_FOLDER: installs the program, has a session bus of its own start it for a
# client, opens files through it, and sees it end with its last window.
set -euo pipefail

. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [ $# -eq 1 ]; then
    folder="$(mktemp -d)"
    cmake --install "$1" --prefix "$folder" >"$folder/install.log"
    on_own_screen "$folder" "$0" "$1" "$folder"
    exit
fi

folder="$2"
# It can be written here, so the program keeps its files there.
program_folder="$folder/lib/quillon"
title="Quillon XML Editor"
printf '<doc/>' >"$folder/good.xml"
printf '<doc>' >"$folder/bad.xml"

nothing_shown() { [ -z "$(titles)" ]; }

not_owned "$bus_name" || fail "nobody has the name yet"
first="$(create)"
is "the path of the first window" "$first" "$factory/Window/1"
nothing_shown || fail "the program the bus starts shows nothing of its own"
is "what OpenFile returns" "$(on_window "$first" OpenFile "$folder/good.xml")" "(<''>,)"
test -d "$program_folder/Temp" || fail "the working folder is beside the program"
is "hidden" "$(get "$first" Visible)" "(<false>,)"
is "read-only" "$(get "$first" ReadOnly)" "(<false>,)"
show "$first" true
until_true "the window is shown" titled "good.xml - $title"
handle="$(get "$first" hWnd | tr -dc '0-9')"
is "the handle" "$(xdotool getwindowname "$handle")" "good.xml - $title"

# A box that tells of a failure keeps nobody from being answered.
second="$(create)"
on_window "$second" OpenFile "$folder/bad.xml"
until_true "a box tells of the failure" titled "$title"
is "the answer meanwhile" "$(get "$second" Visible)" "(<false>,)"
until_true "the box takes the keyboard" xdotool search --onlyvisible --name "^$title\$" windowfocus
xdotool key Escape
show "$second" true
until_true "the caption has the path" titled "bad.xml (修正中) - $title"

show "$second" false
on_window "$second" CloseWindow
on_window "$first" CloseWindow
titled "good.xml - $title" || fail "a window that is shown lives on"
owned "$bus_name" || fail "the program runs on with it"

# The window belongs to the user now. It may go before the key is let go of.
xdotool windowfocus "$handle" key --window "$handle" alt+f x || true
until_true "the program ends with its last window" not_owned "$bus_name"
until_true "the working folder is cleared away" test ! -e "$program_folder/Temp"

# Started by the user, the program serves as well, and ends only with the client's window.
"$folder/bin/quillon" "$folder/good.xml" &
editor=$!
until_true "the user's window" titled "good.xml - $title"
until_true "the name is taken" owned "$bus_name"
third="$(create)"
# A search fails while another window, as the splash, is going.
finds() { found="$(xdotool search --onlyvisible --name "^good.xml - $title\$")"; }
until_true "the user's window is found" finds
xdotool windowfocus "$found" key --window "$found" alt+f x || true
until_true "the user's window is closed" nothing_shown
is "the client's window" "$(get "$third" Visible)" "(<false>,)"
on_window "$third" CloseWindow
wait "$editor" || fail "the program ends well"

# The client that the manual shows.
/usr/bin/python3 "$(dirname "$0")/../../resources/manual/open_files.py" "$folder/good.xml"
until_true "the client's window" titled "good.xml - $title"
until_true "its window is found" finds
xdotool windowfocus "$found" key --window "$found" alt+f x || true
until_true "the program that the bus has started for it ends" not_owned "$bus_name"
echo "automation works"
