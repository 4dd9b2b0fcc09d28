#!/usr/bin/env bash
# Builds the editor and makes the Debian package, build/quillon_VERSION_ARCHITECTURE.deb.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

# dpkg-shlibdeps, which finds the libraries' packages, and what CPack tells programs by.
packaging/install_packages.sh dpkg-dev file

cmake --preset release -D QUILLON_WARNINGS_ARE_ERRORS=OFF
cmake --build --preset release --target quillon
# The folders in the package are for everybody.
umask 022
cpack --config build/release/CPackConfig.cmake -B build/release \
    -D CPACK_OUTPUT_FILE_PREFIX="$PWD/build"
