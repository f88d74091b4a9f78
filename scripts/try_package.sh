#!/usr/bin/env bash
# Installs a package in a clean Debian 12, where two copies play a game on a virtual screen; then the newer package over
# it, with a changed configuration; then purges it. Nothing may be left. To be run as root.
# The clean system, with what the package depends on, is kept in build/ until that changes.
# usage: scripts/try_package.sh PACKAGE NEWER_PACKAGE
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

if [ "${1:-}" != --inside ]; then
  depends=$(dpkg-deb --field "$1" Depends)
  system=build/debian_$(sha256sum <<<"$depends" | head -c 12).tar
  if [ ! -f "$system" ]; then
    rm -f build/debian_*.tar
    # shellcheck disable=SC2016 # it is mmdebstrap's shell that knows $1
    mmdebstrap --quiet --variant=apt --format=tar \
      --customize-hook="chroot \"\$1\" apt-get --quiet --quiet --yes --no-install-recommends satisfy '$depends'" \
      --customize-hook='chroot "$1" apt-get clean' bookworm "$system.part" >/dev/null
    mv "$system.part" "$system"
  fi
  root=$(mktemp -d)
  trap 'rm -rf "$root"' EXIT
  tar -x --numeric-owner -f "$system" -C "$root"
  cp "$1" "$root/var/tmp/package.deb"
  cp "$2" "$root/var/tmp/newer.deb"
  # What is mounted inside is not seen out here, so removing the system cannot reach through it.
  unshare --mount --propagation private "$0" --inside "$root"
  exit
fi
root=$2

fail() { echo "$1" >&2; exit 1; }
inside() { chroot "$root" env PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }
# All but what is mounted, and the record that dpkg keeps of its own work.
files() {
  local apart='./\(proc\|dev\|tmp\|var/log/dpkg\.log\)'
  (cd "$root" && find . -regex "$apart" -prune -o -print | sort)
}

# The screen and the accessibility bus are outside; their sockets are in /tmp.
for directory in proc dev tmp; do mount --bind "/$directory" "$root/$directory"; done

before=$(files)
# dpkg alone fetches nothing: what it lacks here, the package does not name.
inside dpkg --install /var/tmp/package.deb >/dev/null
home=$(echo "$root"/usr/lib/*/brontavia)
for file in brontavia libsound_effects.so; do
  ! inside ldd "${home#"$root"}/$file" | grep 'not found' || fail "$file lacks a library."
done

BRONTAVIA_ROOT=$root PYTHONDONTWRITEBYTECODE=1 scripts/on_virtual_screen.sh /usr/bin/python3 tests/e2e/test_package.py

configuration=$root/etc/brontavia/Brontavia.ini
echo 40000 >"$configuration"
inside dpkg --install /var/tmp/newer.deb >/dev/null
[ "$(cat "$configuration")" = 40000 ] || fail "The upgrade changed Brontavia.ini."
inside dpkg --purge brontavia >/dev/null
left=$(diff <(echo "$before") <(files)) || fail "After the purge: $left"
