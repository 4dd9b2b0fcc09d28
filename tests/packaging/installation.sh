#!/usr/bin/env bash
# installation.sh BUILD_FOLDER: installs the program into a folder that stands for the root of a
# system, at a place with a blank in its name, and checks that the installed files fit together.
set -euo pipefail

root="$(mktemp -d)"
trap 'rm -rf "$root"' EXIT
prefix="/opt/my apps"
installed="$root$prefix"
share="$installed/share"

fail() {
    echo "failed: $1" >&2
    exit 1
}
# value FILE KEY: what stands behind the key in an INI file.
value() { sed -n "s/^$2=//p" "$1"; }

DESTDIR="$root" cmake --install "$1" --prefix "$prefix" >"$root/install.log"

desktop="$share/applications/quillon.desktop"
service="$share/dbus-1/services/org.quillon.XmlEditor.service"
[ "$(value "$desktop" Exec)" = "\"$prefix/bin/quillon\" %f" ] ||
    fail "the desktop entry starts the installed program"
[ "$(value "$service" Exec)" = "/usr/bin/env QUILLON_STARTED_BY_BUS=1 \"$prefix/bin/quillon\"" ] ||
    fail "the bus starts the installed program"
[ "$(value "$service" Name).service" = "$(basename "$service")" ] ||
    fail "the service file is called like the name on the bus"
[ -f "$share/icons/hicolor/scalable/apps/$(value "$desktop" Icon).svg" ] ||
    fail "the desktop entry's icon is there"
grep -q "<launchable type=\"desktop-id\">$(basename "$desktop")</launchable>" \
    "$share/metainfo/org.quillon.XmlEditor.metainfo.xml" ||
    fail "the metainfo leads to the desktop entry"
appstreamcli validate --no-net "$share/metainfo/org.quillon.XmlEditor.metainfo.xml" ||
    fail "the metainfo is valid"
grep -q '<release version="[0-9.]*" ' "$share/metainfo/org.quillon.XmlEditor.metainfo.xml" ||
    fail "the metainfo names the release"
types="$(sed -n 's/.*<mime-type type="\(.*\)">.*/\1/p' "$share/mime/packages/quillon.xml")"
[ -n "$types" ] || fail "the MIME file defines a type"
for type in $types; do
    [[ ";$(value "$desktop" MimeType)" == *";$type;"* ]] || fail "the desktop entry has $type"
done
for language in "" ja/; do
    gzip -dc "$share/man/${language}man1/quillon.1.gz" | grep -q '^\.TH QUILLON 1 ' ||
        fail "the manual page in man/$language"
done

# The link may be moved with the rest, and what the program looks for stands beside it.
program="$(readlink -f "$installed/bin/quillon")"
[ "${program#"$installed"/}" = lib/quillon/quillon ] || fail "the link stays below the prefix"
[ -x "$program" ] || fail "the program is there"
[ -x "${program%/*}/QuillonDDE" ] || fail "the companion is beside the program"
for readme in readme.txt readme_en.txt; do
    grep -q "Quillon XML Editor" "${program%/*}/$readme" || fail "$readme is beside the program"
done

[ -f "${program%/*}/samples/orders.xml" ] || fail "the documents to try are beside the program"

unreadable="$(find "$installed" -type f ! -perm -o=r)"
[ -z "$unreadable" ] || fail "everybody may read $unreadable"
