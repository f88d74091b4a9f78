// A game of chess as one copy holds it: the position, the piece picked up and where it may go. Knows nothing of whose
// turn it is to click, of texts, clocks or the network.
#pragma once

#include <cstdint>
#include <optional>

#include "games/chess/chess_move.h"

namespace brontavia {

enum class ChessClick {
  Nothing,  // an empty square while nothing is picked up
  PickedUp,
  OtherSide,     // refused: it is not that side's turn to move
  Dropped,       // the square of the piece picked up
  NotATarget,    // refused; the piece stays picked up
  KingAttacked,  // refused: the own king would be attacked; nothing is picked up any more
  Moved          // nothing is picked up any more; CompleteMove and PassTurn are to follow
};

struct ChessClickOutcome {
  ChessClick What = ChessClick::Nothing;
  std::optional<ChessMove> Move;  // Moved
};

class ChessGame {
 public:
  ChessGame() { StartNewGame(); }

  void StartNewGame();
  // The game goes on from `position`, with nothing picked up.
  void Load(const ChessPosition& position);

  // ---- Moving ----

  // A click on `square` of the board. In `free_mode` pieces of both sides may be picked up.
  ChessClickOutcome Click(Coordinate square, bool free_mode);
  void DropSelection();
  // The rest of a move that Click has made; see CompleteMove of chess_move.h.
  void CompleteMove(ChessMove& move, int promotion_choice = kNoPiece);
  void PassTurn();

  // ---- Editing ----

  // `piece` comes to stand on `square` (kNoPiece: nothing does), where nothing is picked up any more. Throws
  // std::out_of_range off the board.
  void Put(Coordinate square, int piece);
  // Nothing is picked up any more. KingSquares stay as they are, castling rights, counters and turn too.
  void EmptyBoard();
  void SetSideToMove(Colour colour) { position_.SideToMove = colour; }
  // Each returns false, and changes nothing, for a value below 1 or 0.
  bool SetMoveNumber(std::int16_t number);
  bool SetHalfMoveClock(std::int16_t half_moves);

  // ---- State ----

  [[nodiscard]] const ChessPosition& Position() const { return position_; }
  // How many positions have been set up, by StartNewGame and Load. Another number than before says that the position
  // has been replaced meanwhile.
  [[nodiscard]] int PositionsSetUp() const { return positions_set_up_; }
  [[nodiscard]] const ChessSelection& Selection() const { return selection_; }
  [[nodiscard]] bool HasSelection() const { return selection_.Piece != kNoPiece; }
  // Of the piece picked up; empty when nothing is.
  [[nodiscard]] const TargetList& Targets() const { return targets_.Squares; }
  [[nodiscard]] const brontavia::CastleTargets& CastleTargets() const { return targets_.Castles; }

 private:
  ChessClick PickUp(Coordinate square, bool free_mode);
  ChessClickOutcome MoveTo(Coordinate square);
  // A king picked up may castle as the edited board allows. Where else a piece may go was settled when it was picked
  // up.
  void FollowEdit();

  ChessPosition position_;
  int positions_set_up_ = 0;
  ChessSelection selection_;
  GeneratedTargets targets_;
};

}  // namespace brontavia
