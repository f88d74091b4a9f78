#!/usr/bin/env bash
# Renews every picture of the manual (docs/manual/pictures): from the demonstration where both windows or their boxes
# are to be seen, from the gallery where one window in a known moment tells more. Those of chess in the demonstration
# differ from run to run in their clocks, all others only where the windows have changed.
# usage: scripts/manual_pictures.sh
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${test_packages[@]}" "${screen_packages[@]}"

./play --demo
scripts/gallery.sh 1 light 10

pictures=docs/manual/pictures
rm -rf "$pictures"
mkdir -p "$pictures"

# Small enough for a repository: no more colours than the windows need, nothing but the picture.
save() { convert "$1" "${@:3}" -strip +dither -colors 128 "PNG8:$pictures/$2.png"; }
# from_demo NAME MOMENT [CONVERT_OPTION ...]: the pictures of a demonstration are numbered before the moment's name.
from_demo() { save build/demo/[0-9][0-9]_"$2".png "$1" "${@:3}"; }
# from_gallery NAME WINDOW-MOMENT
from_gallery() { save "build/gallery/light-1x-10pt-800x600/$2.png" "$1"; }

from_gallery start Form1-start
from_gallery selection Form2-selection
from_gallery server FormTER-server
from_gallery client FormTER-client
# The box alone: around it stands the demonstration's own port.
from_demo request request -crop 440x107+191+227 +repage

from_gallery three_in_row_lifted FormTER-lifted
from_demo three_in_row_placed all_pieces_placed
from_demo three_in_row_won win_and_loss

from_gallery naval_placing FormBAR-placing
from_gallery naval_firing FormBAR-firing
from_gallery naval_under_fire FormBAR-under-fire
from_gallery naval_won FormBAR-won

from_demo strategy_menu strategy_menu -gravity west -crop 50%x100%+0+0 +repage
from_gallery strategy_placing FormEST-placing
from_gallery strategy_selected FormEST-selected
from_gallery strategy_fought FormEST-fought
from_gallery strategy_won FormEST-won
from_gallery mini_strategy FormMES-selected

from_gallery chess_start FormAje-start
from_gallery chess_opening FormAje-opening
from_gallery chess_learning FormAje-learning
from_demo chess_promotion chess_after_the_promotion
from_demo chess_mate chess_mate
