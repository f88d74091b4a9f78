#!/usr/bin/env bash
# What ./check WINDOWS does: builds the program for Windows, runs the tests of rules and flows and the program itself
# under Wine, plays whole games against the program for Linux, and tries the installer. Pictures: build/windows/screens.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${test_packages[@]}" "${screen_packages[@]}" "${windows_packages[@]}" \
  "${windows_check_packages[@]}"

scripts/windows.sh
cmake --build build/release --target brontavia -- --quiet
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' build/windows/release/CMakeCache.txt)
windows=$PWD/build/windows
export WINEPREFIX=$windows/wine WINEDEBUG=-all
# Left out are .NET and a browser, which Wine would offer to fetch, and what puts entries into this system's own menu.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'

# ---- Hardening: relocatable, at 64-bit random addresses, with data that is not run ----

headers=$(x86_64-w64-mingw32-objdump --private-headers "$windows/release/bin/brontavia.exe")
for flag in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
  [[ $headers = *$flag* ]] || { echo "brontavia.exe is not $flag." >&2; exit 1; }
done

# ---- A system to itself ----

wineboot --init 2>/dev/null
user=$WINEPREFIX/drive_c/users/$(id --user --name)
# What the tests save and install stays there: Wine has the user's folders lead to the home of whoever runs it.
find "$user" -maxdepth 1 -type l -exec sh -c 'rm "$1" && mkdir "$1"' - {} \;
set_value() { wine reg add "HKCU\\Software\\Wine\\$1" /v "$2" /t "$3" /d "$4" /f >/dev/null; }
# Without the system's fonts, any would do for Wine.
set_value 'Fonts\Replacements' Tahoma REG_SZ 'DejaVu Sans'
set_value 'Fonts\Replacements' 'Courier New' REG_SZ 'DejaVu Sans Mono'
# A window that tells of a crash would take the keyboard from the tests that follow.
set_value WineDbg ShowCrashDialog REG_DWORD 0

# ---- Rules and flows ----

cmake --preset windows-check >/dev/null
cmake --build build/windows/check -- --quiet
runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
WINEPATH="Z:$windows/qt/installed/bin;Z:$runtime;Z:/usr/x86_64-w64-mingw32/lib" \
  ctest --test-dir build/windows/check --parallel "$(nproc)" --output-on-failure

# ---- The installer, for the one user, and nothing left of it ----

installed=$user/AppData/Local/Programs/Brontavia
wine "$windows/Brontavia-$version-instalador.exe" /S
for file in "$user/Desktop/Brontavia.lnk" "$installed/brontavia.exe" "$installed/desinstalar.exe"; do
  [ -e "$file" ] || { echo "The installer has not made $file." >&2; exit 1; }
done
echo 40000 >"$installed/Brontavia.ini"
wine "$windows/Brontavia-$version-instalador.exe" /S
[ "$(cat "$installed/Brontavia.ini")" = 40000 ] || { echo "The installer has changed the port." >&2; exit 1; }

# ---- Whole games ----

export BRONTAVIA_WINDOWS=$installed BRONTAVIA_BINARY=$PWD/build/release/bin/brontavia
export BRONTAVIA_SCREENS=$windows/screens PYTHONDONTWRITEBYTECODE=1
# Until now Wine has been without a screen, and would go on without one unless it ends first.
wineserver --wait
scripts/on_virtual_screen.sh /usr/bin/python3 tests/windows/test_games.py -v

wine "$installed/desinstalar.exe" /S
wineserver --wait # for the copy of it that does the work, so that it can delete itself
left=$(find "$installed" "$user/Desktop" "$user/AppData/Roaming" -iname '*brontavia*' 2>/dev/null || true)
[ -z "$left" ] || { printf 'The uninstaller has left:\n%s\n' "$left" >&2; exit 1; }
echo "Installed, played with and removed. Screenshots: $windows/screens"
