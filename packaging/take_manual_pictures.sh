#!/usr/bin/env bash
# take_manual_pictures.sh [EDITOR]: makes the pictures of the manual anew, with the editor as it has
# been built, on a virtual screen of its own, and writes them to resources/manual/pictures. EDITOR is
# build/release/app/quillon unless told otherwise. Needs what ./test needs.
#
# Each picture has a function of its name below, which brings the program where the manual tells of
# it, by the keys that users press. What is taken is the window without its frame, in few colours.
set -euo pipefail

source_folder="$(cd "$(dirname "$0")/.." && pwd)"
. "$source_folder/tests/end_to_end/common.sh"
if [ "${1:-}" != --on-screen ]; then
    editor="$(realpath "${1:-$source_folder/build/release/app/quillon}")"
    on_own_screen "$(mktemp -d)" "$0" --on-screen "$editor"
    exit
fi

editor="$2"
pictures="$source_folder/resources/manual/pictures"
samples="$HOME/samples"
title="Quillon XML Editor"
window=""
program=0

# The program keeps nothing between two pictures.
clean() { rm -rf "$XDG_CONFIG_HOME/quillon" "$XDG_DATA_HOME/quillon" "$HOME/program/Temp"; }
# found TITLE: whether there is a window so titled, the splash left out; it is $window then.
found() {
    local kind
    for window in $(xdotool search --onlyvisible --name "$1"); do
        kind="$(xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null)" || continue
        [[ "$kind" == *_NORMAL* && "$kind" != *_SPLASH* ]] && return
    done
    return 1
}
# start NAME [FILE]: starts the editor and waits for its window.
start() {
    clean
    "$HOME/program/quillon" "${@:2}" >/dev/null 2>&1 &
    program=$!
    until_true "the window of $1" found "${2:+$(basename "$2") - }$title\$"
    xdotool windowsize --sync "$window" 960 640 windowmove "$window" 20 40 windowfocus --sync "$window"
    sleep 1.5
}
keys() { xdotool key --clearmodifiers --delay 60 "$@"; sleep 0.4; }
types() { xdotool type --clearmodifiers --delay 30 -- "$1"; sleep 0.4; }
# take NAME: writes the picture, with the boxes that stand in front of the window, and ends the program.
take() {
    local place
    sleep 0.8
    place="$(xwininfo -id "$window" | awk '/Absolute.*X:/ {x = $NF} /Absolute.*Y:/ {y = $NF}
        /Width:/ {w = $NF} /Height:/ {h = $NF} END {print w "x" h "+" x "+" y}')"
    import -silent -window root -crop "$place" +repage +dither -colors 96 -strip \
        -define png:compression-level=9 "png8:$pictures/$1.png"
    echo "$1.png: $(stat -c %s "$pictures/$1.png") bytes"
    kill "$program"
    wait "$program" 2>/dev/null || true
}

picture_first() {
    start first
    take first
}
picture_main() {
    start main "$samples/orders.xml"
    keys --window "$window" Down Down Down Down
    take main
}
picture_commands() {
    start commands "$samples/orders.xml"
    keys ctrl+shift+p
    types "node"
    take commands
}
picture_replace() {
    start replace "$samples/orders.xml"
    keys ctrl+h
    until_true "the dialog" xdotool search --onlyvisible --name '検索と置換'
    types "2026-11"
    keys Tab
    types "2026-12"
    keys alt+l
    take replace
}
picture_schema() {
    start schema "$samples/memo.xml"
    keys shift+F7
    take schema
}
picture_faults() {
    start faults "$samples/faulty.xml"
    sleep 2
    keys F4
    take faults
}
picture_candidates() {
    start candidates "$samples/memo.xml"
    sleep 1
    keys Down Down Down F9
    sleep 1
    take candidates
}
picture_proposals() {
    start proposals "$samples/memo.xml"
    sleep 1
    keys Down Down Down F6 ctrl+End Left Left Left Left Left Left Left
    types "<"
    take proposals
}
picture_preview() {
    start preview "$samples/orders.xml"
    sleep 2
    take preview
}

mkdir -p "$pictures" "$samples" "$HOME/program"
# In a folder of its own, as it keeps its files beside itself.
cp -r "$editor" "$(dirname "$editor")"/{readme.txt,samples} "$HOME/program"
cp "$source_folder"/resources/samples/* "$samples"
cat >"$samples/memo.dtd" <<'DTD'
<!-- 連絡 -->
<!ELEMENT memo (to+, subject, body, attachment*)>
<!-- 連絡の重要度 -->
<!ATTLIST memo importance (高|普通|低) "普通" date CDATA #REQUIRED>
<!ELEMENT to (#PCDATA)>
<!ELEMENT subject (#PCDATA)>
<!ELEMENT body (para+)>
<!ELEMENT para (#PCDATA|em|link)*>
<!ELEMENT em (#PCDATA)>
<!ELEMENT link (#PCDATA)>
<!ATTLIST link href CDATA #REQUIRED>
<!ELEMENT attachment (#PCDATA)>
DTD
cat >"$samples/memo.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE memo SYSTEM "memo.dtd">
<memo date="2026-11-25">
  <to>山田</to>
  <subject>打ち合わせの日程</subject>
  <body>
    <para>来週の打ち合わせは <em>木曜日</em> に変わりました。</para>
  </body>
</memo>
XML
cat >"$samples/faulty.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE memo SYSTEM "memo.dtd">
<memo date="2026-11-25" importance="最高">
  <to>山田</to>
  <body>
    <para>来週の打ち合わせは <emph>木曜日</emph> に変わりました。</para>
  </body>
</memo>
XML

openbox >/dev/null 2>&1 &
window_manager=$!
trap 'kill "$window_manager" 2>/dev/null || true' EXIT
sleep 1
for picture in ${QUILLON_PICTURES:-first main commands replace schema faults candidates proposals preview}; do
    "picture_$picture"
done
