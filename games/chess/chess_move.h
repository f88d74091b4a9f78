// A move on its way through the rules, in three steps, so that the player can be asked for the promotion and the move
// be told before the turn passes: ApplyMove, CompleteMove, PassTurn.
#pragma once

#include <optional>

#include "games/chess/move_generation.h"

namespace brontavia {

struct RookMove {
  Coordinate Source;
  Coordinate Target;
  friend bool operator==(const RookMove&, const RookMove&) = default;
};

// What a move does.
struct ChessMove {
  ChessSelection Moved;
  Coordinate Target;
  int Captured = kNoPiece;               // on the target; nothing stands there when a pawn is captured en passant
  bool EnPassantCapture = false;         // a pawn went onto the square where its side may capture en passant
  std::optional<RookMove> CastlingRook;  // the rook that moved with the king
  bool EnPassantOffered = false;         // the other side may now capture the moved pawn en passant
  bool PromotionPending = false;         // the moved pawn waits to be replaced
  int PromotionChoice = kNoPiece;        // the kind that replaced it
  friend bool operator==(const ChessMove&, const ChessMove&) = default;
};

// Moves `selection` to `target`, one of its GenerateTargets, with all that follows but counters and turn. `castles` are
// those that were generated with it. Returns nothing, and `position` is as it was, when the own king would be attacked;
// that is asked for the square where KingSquares had the king before the move.
std::optional<ChessMove> ApplyMove(ChessPosition& position, const ChessSelection& selection, Coordinate target,
                                   const CastleTargets& castles);

// Replaces a pawn that waits for it by `promotion_choice`, one of kPromotionChoices; other moves do not look at it.
// Then counts the half move and notes a double step for saved positions.
void CompleteMove(ChessPosition& position, ChessMove& move, int promotion_choice = kNoPiece);

// It is the other side's turn.
void PassTurn(ChessPosition& position);

}  // namespace brontavia
