// The game with what shows it and what times it. Whoever replaces or edits the position keeps the three in step.
#pragma once

#include "games/chess/chess_clocks.h"
#include "games/chess/chess_display.h"
#include "games/chess/chess_game.h"

namespace brontavia {

struct ChessTable {
  ChessGame& Game;
  ChessDisplay& Display;
  ChessClocks& Clocks;
};

}  // namespace brontavia
