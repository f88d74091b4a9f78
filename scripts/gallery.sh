#!/usr/bin/env bash
# Photographs every window in every phase, light and dark, at scale 1 and 2, with fonts of 10 and 18 points, at its
# smallest and its first size, on a small screen (800 x 600) and on a large one. Needs no display.
# Contact sheets: build/gallery/<palette>-<scale>x-<points>pt-<size>.png, single pictures in directories of these names.
# usage: scripts/gallery.sh                        all looks
#        scripts/gallery.sh SCALE PALETTE POINTS   one of them, such as 1 light 10
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

cmake --preset check >/dev/null
cmake --build build/check --target gallery
rm -rf build/gallery

export QT_QPA_PLATFORM=offscreen:configfile=$PWD/tests/gallery/screen.json
looks() {
  local scale palette points
  for scale in 1 2; do
    for palette in light dark; do
      for points in 10 18; do echo "$scale $palette $points"; done
    done
  done
}
if [ $# -eq 3 ]; then echo "$@"; else looks; fi | xargs --max-lines=1 --max-procs="$(nproc)" \
  bash -c 'QT_SCALE_FACTOR=$0 build/check/tests/gallery/gallery build/gallery "$1" "$2"' \
  2> >(grep -v '^This plugin does not support ' >&2)
