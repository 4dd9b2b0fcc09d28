#!/usr/bin/env bash
# on_virtual_screen.sh COMMAND...: runs a command on a virtual screen of its own. The X server itself
# takes a number that is free and tells it once it answers; looking for one beforehand, as others
# starting at the same moment do, finds the same number twice. It does not begin anew when its last
# client goes: a program that is just starting would be turned away.
set -euo pipefail

folder="$(mktemp -d)"
mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$folder/number" >/dev/null 2>&1 &
server=$!
trap 'kill "$server" 2>/dev/null || true; wait "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT
read -r number <"$folder/number" || {
    echo "there is no virtual screen" >&2
    exit 1
}
DISPLAY=":$number" "$@"
