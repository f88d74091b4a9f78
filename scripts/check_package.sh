#!/usr/bin/env bash
# Builds the package for Debian, judges it by the conventions, and tries it in a clean Debian 12 that is made for it.
# Needs root or sudo: it mounts, and changes to another root directory. The first time it fetches that system from
# Debian's mirror.
# usage: scripts/check_package.sh
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${package_check_packages[@]}" "${screen_packages[@]}"

fail() { echo "$1" >&2; exit 1; }
step() { echo "-- $1"; }

step "The package"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || stat --format=%Y CHANGELOG.md)
export SOURCE_DATE_EPOCH
deb=$(scripts/package.sh 2>build/package.log) || { cat build/package.log >&2; exit 1; }
! grep -a 'warning:' build/package.log || fail "The release build warns."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

step "The same files elsewhere give the same package"
mkdir "$scratch/elsewhere"
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$scratch/elsewhere"
again=$("$scratch/elsewhere/scripts/package.sh" 2>"$scratch/log") || { cat "$scratch/log" >&2; exit 1; }
cmp "$deb" "$again"
rm -rf "$scratch/elsewhere"

step "The conventions"
# Errors and warnings fail; what is overridden has its reason in packaging/debian/lintian-overrides.
lintian --allow-root --fail-on error,warning "$deb" 2>&1 | { grep -v 'root privileges' || true; }
dpkg-deb --extract "$deb" "$scratch/files"
desktop-file-validate "$scratch"/files/usr/share/applications/*.desktop
appstreamcli validate --no-net "$scratch"/files/usr/share/metainfo/*.metainfo.xml
for page in "$scratch"/files/usr/share/man/{,es/}man6/*; do
  warnings=$(MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file "$page" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "$page: $warnings"
done

step "The hardening"
home=$(echo "$scratch"/files/usr/lib/*/brontavia)
# has FILE OPTION TEXT
has() { readelf --wide "$2" "$1" | grep -F -- "$3" >/dev/null || fail "$1 has no $3"; }
for file in "$home"/brontavia "$home"/libsound_effects.so; do
  has "$file" --program-headers GNU_RELRO
  has "$file" --dynamic BIND_NOW
  has "$file" --dyn-syms __stack_chk_fail
done
has "$home/brontavia" --file-header 'Position-Independent Executable'
has "$home/brontavia" --dyn-syms __fprintf_chk
has "$home/brontavia" --dyn-syms __glibcxx_assert_fail
for file in "$home"/brontavia "$home"/libsound_effects.so; do
  ! readelf --wide --dynamic "$file" | grep -E 'RPATH|RUNPATH' || fail "$file looks for libraries where it was built."
done

step "A life in a clean Debian 12"
# The next revision, of the same files.
(cd build/package && cpack -D CPACK_DEBIAN_PACKAGE_RELEASE=2 -B "$scratch/newer" >/dev/null)
as_root scripts/try_package.sh "$deb" "$scratch"/newer/*.deb
echo "The package is good: $deb"
