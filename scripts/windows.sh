#!/usr/bin/env bash
# Makes what players on Windows get: build/windows/Brontavia-VERSION.zip and its installer, printed with their sizes.
# Builds Qt first where scripts/windows_qt.sh has not done so yet. `--stage` stops before packing.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${windows_packages[@]}"
scripts/windows_qt.sh

# This machine's own program draws the icon.
cmake --preset release >/dev/null
cmake --build build/release --target draw_icon -- --quiet
cmake --preset windows >/dev/null
cmake --build build/windows/release -- --quiet

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:.*=//p' build/windows/release/CMakeCache.txt)
name=Brontavia-$version
stage=$PWD/build/windows/$name
qt=$PWD/build/windows/qt/installed
tools=x86_64-w64-mingw32
rm -rf "$stage"
cmake --install build/windows/release --strip --prefix "$stage" >/dev/null

# ---- The libraries: what the toolkit loads by name, and what all of it imports ----

for plugin in platforms/qwindows styles/qwindowsvistastyle imageformats/qsvg; do
  install -D "$qt/plugins/$plugin.dll" "$stage/plugins/$plugin.dll"
done
install -D -m 644 "$qt/translations/qtbase_es.qm" "$stage/translations/qtbase_es.qm"

runtime=$(dirname "$($tools-g++-posix -print-file-name=libstdc++-6.dll)")
imported() {
  find "$stage" \( -name '*.exe' -o -name '*.dll' \) -exec $tools-objdump --private-headers {} + |
    sed -n 's/^\tDLL Name: //p' | sort --unique
}
delivered() { [ -e "$stage/$1" ]; }
# Copies a library that is not the system's own; fails when there is none.
deliver() {
  local place
  for place in "$qt/bin" "$runtime" /usr/$tools/lib; do
    [ ! -e "$place/$1" ] || { cp "$place/$1" "$stage" && $tools-strip "$stage/$1" && return; }
  done
  return 1
}
missing=yes
while [ "$missing" = yes ]; do
  missing=no
  for library in $(imported); do
    if ! delivered "$library" && deliver "$library"; then missing=yes; fi
  done
done
# What is left has to be Windows: the compiler knows how to link each of its libraries, or it is one by its name.
for library in $(imported); do
  lower=${library,,}
  delivered "$library" || [ -e "/usr/$tools/lib/lib${lower%.*}.a" ] || [[ $lower = api-ms-win-* ]] ||
    { echo "Nobody has $library." >&2; exit 1; }
done

# ---- The licences ----

licences=$stage/licencias
mkdir "$licences"
sed "s/@version@/$version/" packaging/windows/LEAME.txt >"$licences/LEAME.txt"
cp "$qt"/licences/* "$licences"
cp LICENSE "$licences/brontavia.txt"
cp "/usr/share/doc/g++-mingw-w64-x86-64-posix/copyright" "$licences/gcc.txt"
cp "/usr/share/doc/mingw-w64-x86-64-dev/copyright" "$licences/mingw-w64.txt"
# Notepad has known the line ends of others for a few years only.
find "$licences" "$stage/Brontavia.ini" -type f -exec sed -i 's/\r*$/\r/' {} +
find "$stage" -type f ! -name '*.exe' ! -name '*.dll' -exec chmod 644 {} +
[ "${1:-}" != --stage ] || exit 0

# ---- Zip and installer ----

cd build/windows
# With the commit's time, so that the same commit gives the same zip.
find "$name" -exec touch --date "@${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}" {} +
rm -f "$name.zip"
find "$name" | sort | TZ=UTC zip --quiet -9 -X "$name.zip" -@
# The uninstaller takes away what was installed, file by file: the folder is the user's choice and may hold more.
{
  find "$name" -type f -printf 'Delete "$INSTDIR\\%P"\n'
  find "$name" -mindepth 1 -depth -type d -printf 'RMDir "$INSTDIR\\%P"\n'
} | tr / '\\' >uninstall.nsh
numbers=$(sed -E 's/^[0-9]+\.[0-9]+$/&.0/; s/$/.0/' <<<"$version") # the four of a version resource
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$version" "-DNUMBERS=$numbers" "-DSTAGE=$stage" \
  "-DREMOVE=$PWD/uninstall.nsh" "-DICON=$PWD/release/packaging/windows/brontavia.ico" \
  "-DOUTPUT=$PWD/$name-instalador.exe" ../../packaging/windows/installer.nsi
du --bytes --apparent-size "$PWD/$name.zip" "$PWD/$name-instalador.exe" |
  awk '{ printf "%s %.1f MiB\n", $2, $1 / 1048576 }'
