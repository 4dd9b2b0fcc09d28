#!/usr/bin/env bash
# take_picture.sh PICTURE EDITOR [FILE]
# Starts the editor on the present X display, waits until its window has come to rest, writes a
# picture of the whole screen and ends the editor.
set -euo pipefail

picture="$1"
shift
title="Quillon XML Editor"
poll_seconds=0.2
patience_seconds=60

"$@" &
editor=$!
trap 'kill "$editor" 2>/dev/null || true; wait "$editor" 2>/dev/null || true' EXIT

fail() {
    echo "$1" >&2
    exit 1
}

# One line for each of the editor's windows on the screen: its number, kind and title.
windows() {
    local id kind
    for id in $(xdotool search --onlyvisible --class '^quillon$' 2>/dev/null); do
        kind="$(xprop -id "$id" _NET_WM_WINDOW_TYPE 2>/dev/null)" || continue
        echo "$id ${kind##*= } $(xdotool getwindowname "$id" 2>/dev/null)" || continue
    done
}

# The window is shown once its document is loaded; until then there is at most the splash. A box
# with a message is as far as the editor gets when nobody answers it.
is_ready() {
    [[ "$1" == *_NET_WM_WINDOW_TYPE_DIALOG* ]] ||
        { [[ "$1" != *_NET_WM_WINDOW_TYPE_SPLASH* ]] && grep -q -- "$title\$" <<<"$1"; }
}

# Number of polls for which nothing has changed: neither the windows nor, at the end, what they
# show. A blinking cursor never comes to rest, so the windows alone have to do after a while.
windows_before=""
pixels_before=""
same=0
while [ "$same" -lt 25 ]; do
    kill -0 "$editor" 2>/dev/null || fail "エディタが終了しました (the editor ended before its window was shown)."
    [ "$SECONDS" -lt "$patience_seconds" ] ||
        fail "${patience_seconds} 秒以内に表示されませんでした (no window within $patience_seconds seconds)."
    sleep "$poll_seconds"
    windows_now="$(windows)"
    if [ "$windows_now" = "$windows_before" ] && is_ready "$windows_now"; then
        same=$((same + 1))
    else
        same=0
    fi
    windows_before="$windows_now"
    if [ "$same" -ge 4 ]; then
        pixels_now="$(import -silent -window root rgb:- | cksum)"
        [ "$pixels_now" != "$pixels_before" ] || break
        pixels_before="$pixels_now"
    fi
done

import -silent -window root "png:$picture"
echo "画面を $picture に保存しました (picture of the screen written to $picture)."
