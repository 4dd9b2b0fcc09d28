#!/usr/bin/env bash
# offscreen.sh EDITOR: the real program on Qt's offscreen platform beside an X display, as somebody on
# a desktop runs it from a script: it shows its window and its preview to nobody, and lives.
set -euo pipefail

. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [ $# -eq 1 ]; then
    folder="$(mktemp -d)"
    cp "$1" "$folder/quillon"
    on_own_screen "$folder" "$0" "$1" "$folder"
    exit
fi

folder="$2"
printf '<doc/>' >"$folder/one.xml"
QT_QPA_PLATFORM=offscreen "$folder/quillon" &
editor=$!
trap 'kill "$editor" 2>/dev/null || true; wait 2>/dev/null || true' EXIT
ended_or_owned() { ! kill -0 "$editor" 2>/dev/null || owned "$bus_name"; }

until_true "the program serves" ended_or_owned
window="$(create)"
on_window "$window" OpenFile "$folder/one.xml" >/dev/null
show "$window" true >/dev/null
until_true "the preview is made" test -s "$folder/Temp/preview.htm"
is "shown" "$(get "$window" Visible)" "(<true>,)"
kill -TERM "$editor"
wait "$editor" || fail "the program ends well"
echo "it lives offscreen"
