# What the scripts beside this one share; they source it.

# fail WHAT: ends the script with what was expected and which windows there are.
fail() {
    echo "FAILED: $1" >&2
    echo "windows: $(titles)" >&2
    exit 1
}
# The titles of the editor's windows on the screen, one a line.
titles() {
    local id
    for id in $(xdotool search --onlyvisible --class '^quillon$' 2>/dev/null); do
        xdotool getwindowname "$id" 2>/dev/null || true
    done
}
titled() { titles | grep -qxF -- "$1"; }
# until_true WHAT COMMAND...: polls until the command succeeds.
until_true() {
    local what="$1" tries=0
    shift
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        [ "$tries" -lt 200 ] || fail "$what"
        sleep 0.05
    done
}
# owned NAME: whether somebody has the name on the session bus.
owned() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.NameHasOwner "$1" | grep -q true
}
not_owned() { ! owned "$1"; }
