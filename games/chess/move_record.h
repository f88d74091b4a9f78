// What the move list and the messages say of a move.
#pragma once

#include <string>

#include "games/chess/chess_move.h"

namespace brontavia {

struct MoveRecord {
  std::u16string ListText;  // to append to the move list, the line break after Black's move included
  std::u16string Sentence;  // for the messages
};

// Of a move that is complete, before the turn passes.
MoveRecord RecordMove(const ChessPosition& position, const ChessMove& move);

// How the move list begins after a position was loaded: with the missing move of White when Black is to move.
std::u16string MoveListStart(const ChessPosition& position);

}  // namespace brontavia
