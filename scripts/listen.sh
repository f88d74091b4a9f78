#!/usr/bin/env bash
# Lets the demonstration of one game be played with the keyboard under the screen reader Orca, on a virtual screen and
# without a voice, and prints each step and what was spoken, then how much of it was said twice or not at all.
# Orca's own record, with the events that made it speak, stays in build/listen/GAME/.
# usage: scripts/listen.sh GAME    GAME: three_in_row naval mini_strategy strategy chess
# Another binary than build/release/bin/brontavia: name it in BRONTAVIA_BINARY.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh

case "$#:${1:-}" in
  1:three_in_row | 1:naval | 1:mini_strategy | 1:strategy | 1:chess) game=$1 ;;
  *) sed -n '5,6s/^# *//p' "$0" >&2 && exit 2 ;;
esac

install_missing "${build_packages[@]}" "${screen_packages[@]}" "${screen_reader_packages[@]}"
if [ -z "${BRONTAVIA_BINARY:-}" ]; then
  [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
  cmake --build build/release -- --quiet
fi

exec scripts/on_virtual_screen.sh /usr/bin/python3 tests/e2e/listen.py \
  "${BRONTAVIA_BINARY:-build/release/bin/brontavia}" "$game" "build/listen/$game"
