# What the scripts beside this one share; they source it.

# on_own_screen FOLDER COMMAND...: runs a command with a virtual screen and a session bus of its own,
# with FOLDER for its home, and with nothing around it of the user's who runs the test. Then removes
# the folder.
on_own_screen() {
    local folder="$1" status=0
    shift
    mkdir -p -m 700 "$folder/run"
    env -i PATH="$PATH" LC_ALL=C.UTF-8 HOME="$folder" XDG_CONFIG_HOME="$folder/config" \
        XDG_DATA_HOME="$folder/share" XDG_RUNTIME_DIR="$folder/run" QT_QPA_PLATFORM=xcb \
        "$(dirname "${BASH_SOURCE[0]}")/../support/on_virtual_screen.sh" dbus-run-session -- "$@" ||
        status=$?
    rm -rf "$folder"
    return "$status"
}

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
        [ "$tries" -lt 2400 ] || fail "$what"
        sleep 0.05
    done
}
# owned NAME: whether somebody has the name on the session bus.
owned() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.NameHasOwner "$1" | grep -q true
}
not_owned() { ! owned "$1"; }

# The program as its clients on the bus see it: its name and its factory, and calls to them.
bus_name=org.quillon.XmlEditor
factory=/org/quillon/XmlEditor
call() {
    local object="$1" method="$2"
    shift 2
    gdbus call --session --timeout 600 --dest "$bus_name" --object-path "$object" \
        --method "$method" "$@"
}
on_window() {
    local object="$1" method="$2"
    shift 2
    call "$object" "$bus_name.Window.$method" "$@"
}
create() { call "$factory" "$bus_name.Factory.CreateWindow" | sed "s/.*'\(.*\)'.*/\1/"; }
get() { call "$1" org.freedesktop.DBus.Properties.Get "$bus_name.Window" "$2"; }
show() { call "$1" org.freedesktop.DBus.Properties.Set "$bus_name.Window" Visible "<$2>"; }
# is WHAT VALUE EXPECTED
is() { [ "$2" = "$3" ] || fail "$1: $2 instead of $3"; }
