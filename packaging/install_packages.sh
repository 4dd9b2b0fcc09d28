#!/usr/bin/env bash
# install_packages.sh [PACKAGE...]: installs those packages of packages.txt, and of those given, that
# are not there. Quick and silent when all are.
set -euo pipefail

fail() {
    echo "$1" >&2
    exit 1
}

mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]*$//' -e '/^$/d' \
    "$(dirname "${BASH_SOURCE[0]}")/packages.txt")
wanted+=("$@")

command -v dpkg-query >/dev/null ||
    fail "Not a Debian system. Install what corresponds to these packages: $(IFS=,; echo "${wanted[*]}")"

declare -A installed
while read -r package version; do
    installed["$package"]="$version"
done < <(dpkg-query -W -f '${db:Status-Status} ${Package} ${Version}\n' | sed -n 's/^installed //p')

# is_there DEPENDENCY: whether one of its alternatives is installed, each "NAME" or
# "NAME (OPERATOR VERSION)".
is_there() {
    local alternatives alternative name operator version
    IFS='|' read -ra alternatives <<<"$1"
    for alternative in "${alternatives[@]}"; do
        read -r name operator version <<<"${alternative//[()]/ }"
        [ -n "${installed[$name]:-}" ] || continue
        [ -n "$operator" ] || return 0
        ! dpkg --compare-versions "${installed[$name]}" "$operator" "$version" || return 0
    done
    return 1
}
missing=""
for dependency in "${wanted[@]}"; do
    is_there "$dependency" || missing+="${missing:+, }$dependency"
done
[ -n "$missing" ] || exit 0

echo "パッケージを追加します (installing packages): $missing" >&2
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
        fail "Only root can install them, and there is no sudo. As root: apt-get satisfy '$missing'"
    as_root=(sudo)
    # Nobody is there to type a password.
    [ -t 0 ] || as_root+=(-n)
fi
apt_get() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "$@" >&2
}
# Old lists are no reason to give up: the packages may still be found.
apt_get -q update || true
apt_get -q satisfy -y --no-install-recommends "$missing" ||
    fail "apt-get could not install: $missing"
