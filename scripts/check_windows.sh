#!/usr/bin/env bash
# What ./check WINDOWS does: builds the program for Windows, runs the tests of rules and flows and the program itself
# under Wine, plays whole games against the program for Linux, and tries the installer. Screenshots: build/windows/screens.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${test_packages[@]}" "${screen_packages[@]}" "${windows_packages[@]}" \
  "${windows_check_packages[@]}"

scripts/windows.sh
cmake --build build/release --target brontavia -- --quiet
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' build/windows/release/CMakeCache.txt)
windows=$PWD/build/windows
export WINEPREFIX=$windows/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='

# ---- Hardening: relocatable, at 64-bit random addresses, with data that is not run ----

for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
  x86_64-w64-mingw32-objdump --private-headers "$windows/release/bin/brontavia.exe" | grep --quiet "$flag" ||
    { echo "brontavia.exe is not $flag." >&2; exit 1; }
done

# ---- Rules and flows ----

cmake --preset windows-check >/dev/null
cmake --build build/windows/check -- --quiet
runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
wineboot --init 2>/dev/null
WINEPATH="Z:$windows/qt/installed/bin;Z:$runtime;Z:/usr/x86_64-w64-mingw32/lib" \
  ctest --test-dir build/windows/check --output-on-failure

# ---- The installer, for the one user, and nothing left of it ----

user=$WINEPREFIX/drive_c/users/$(id --user --name)
installed=$user/AppData/Local/Programs/Brontavia
wine "$windows/Brontavia-$version-instalador.exe" /S
[ -e "$user/Desktop/Brontavia.lnk" ] && [ -e "$installed/desinstalar.exe" ]
echo 40000 >"$installed/Brontavia.ini"
wine "$windows/Brontavia-$version-instalador.exe" /S
[ "$(cat "$installed/Brontavia.ini")" = 40000 ] || { echo "The installer has changed the port." >&2; exit 1; }

# ---- Whole games ----

export BRONTAVIA_WINDOWS=$installed BRONTAVIA_BINARY=$PWD/build/release/bin/brontavia
export BRONTAVIA_SCREENS=$windows/screens PYTHONDONTWRITEBYTECODE=1
scripts/on_virtual_screen.sh /usr/bin/python3 tests/windows/test_games.py

wine "$installed/desinstalar.exe" /S "_?=$(winepath --windows "$installed")"
rm -f "$installed/desinstalar.exe" # which cannot delete itself while it is waited for
left=$(find "$installed" "$user/Desktop" "$user/AppData/Roaming" -iname '*brontavia*' 2>/dev/null || true)
[ -z "$left" ] || { printf 'The uninstaller has left:\n%s\n' "$left" >&2; exit 1; }
echo "Installed, played with and removed. Screenshots: $windows/screens"
