#!/usr/bin/env bash
# accessibility.sh EDITOR: uses the real program through nothing but what a screen reader sees: every
# control has a name, and a document is opened, searched, edited, undone, validated and saved.
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
printf '<注文 番号="1">\r\n  <品名>古い</品名>\r\n</注文>\r\n' >"$folder/order.xml"
printf '<!ELEMENT 注文 (品名)><!ATTLIST 注文 番号 CDATA "">\n<!ELEMENT 品名 (#PCDATA)>\n' >"$folder/order.dtd"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# Boxes are active as under a window manager.
openbox &
manager=$!
editor=0
trap 'kill "$editor" "$manager" 2>/dev/null || true; wait 2>/dev/null || true' EXIT
"$folder/quillon" &
editor=$!
# The bus of assistive technology is started by the session bus when it is asked for.
timeout 1500 /usr/bin/python3 -W ignore::DeprecationWarning \
    "$(dirname "${BASH_SOURCE[0]}")/accessibility.py" "$folder/order.xml"
[ "$(cat "$folder/order.xml")" = "$(printf '<注文 番号="1">\r\n  <品名>新しい</品名>\r\n</注文>\r\n')" ] ||
    fail "the file holds the change and nothing else: $(cat "$folder/order.xml")"
echo "a screen reader's user can do it"
