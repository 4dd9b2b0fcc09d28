#!/usr/bin/env bash
# install_packages.sh [PACKAGE...]: installs those packages of packages.txt, and of those given, that
# are not there. Quick and silent when all are.
set -euo pipefail

fail() {
    echo "$1" >&2
    exit 1
}

mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' \
    "$(dirname "${BASH_SOURCE[0]}")/packages.txt")
wanted+=("$@")

command -v dpkg-query >/dev/null ||
    fail "Not a Debian system. Install what corresponds to these packages: ${wanted[*]}"

# dpkg-query fails when it does not know one of the names, and lists the others all the same.
installed="$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
    sed -n 's/^installed //p' || true)"
missing=()
for package in "${wanted[@]}"; do
    grep -qxF -- "$package" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "パッケージを追加します (installing packages): ${missing[*]}" >&2
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
        fail "Only root can install them, and there is no sudo. As root: apt-get install ${missing[*]}"
    as_root=(sudo)
    # Nobody is there to type a password.
    [ -t 0 ] || as_root+=(-n)
fi
apt_get() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "$@" >&2
}
# Old lists are no reason to give up: the packages may still be found.
apt_get -q update || true
apt_get -q install -y --no-install-recommends "${missing[@]}" ||
    fail "apt-get could not install: ${missing[*]}"
