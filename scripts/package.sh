#!/usr/bin/env bash
# Builds the package for Debian from the files as they are here, and prints where it is. The same files give the same
# package to the byte wherever they lie: its times are those of the commit, or of the source archive.
# usage: scripts/package.sh
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${package_packages[@]}" >&2

SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || stat --format=%Y CHANGELOG.md)}
export SOURCE_DATE_EPOCH
umask 022

cmake --preset package >&2
cmake --build build/package >&2
rm -f build/package/*.deb
(cd build/package && cpack) >&2
readlink -f build/package/*.deb
