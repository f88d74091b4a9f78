#include "games/chess/chess_game.h"

namespace brontavia {

void ChessGame::StartNewGame() { Load(StartPosition()); }

void ChessGame::Load(const ChessPosition& position) {
  position_ = position;
  ++positions_set_up_;
  DropSelection();
}

ChessClickOutcome ChessGame::Click(Coordinate square, bool free_mode) {
  if (!HasSelection()) return {.What = PickUp(square, free_mode)};
  if (square == selection_.Source) {
    DropSelection();
    return {.What = ChessClick::Dropped};
  }
  if (!targets_.Squares.Holds(square)) return {.What = ChessClick::NotATarget};
  return MoveTo(square);
}

ChessClick ChessGame::PickUp(Coordinate square, bool free_mode) {
  const int piece = position_.Board.At(square);
  if (piece == kNoPiece) return ChessClick::Nothing;
  if (ColourOf(piece) != position_.SideToMove && !free_mode) return ChessClick::OtherSide;
  selection_ = {.Source = square, .Piece = piece};
  targets_ = GenerateTargets(position_, selection_);
  return ChessClick::PickedUp;
}

ChessClickOutcome ChessGame::MoveTo(Coordinate square) {
  const std::optional<ChessMove> move = ApplyMove(position_, selection_, square, targets_.Castles);
  DropSelection();
  return {.What = move ? ChessClick::Moved : ChessClick::KingAttacked, .Move = move};
}

void ChessGame::DropSelection() {
  selection_ = {};
  targets_ = {};
}

void ChessGame::CompleteMove(ChessMove& move, int promotion_choice) {
  brontavia::CompleteMove(position_, move, promotion_choice);
}

void ChessGame::PassTurn() { brontavia::PassTurn(position_); }

void ChessGame::Put(Coordinate square, int piece) {
  position_.Board.Put(square, piece);
  position_.KingSquares = FindKings(position_.Board);
  if (square == selection_.Source) DropSelection();
  FollowEdit();
}

void ChessGame::EmptyBoard() {
  position_.Board = {};
  DropSelection();
}

bool ChessGame::SetMoveNumber(std::int16_t number) {
  if (number < 1) return false;
  position_.MoveNumber = number;
  return true;
}

bool ChessGame::SetHalfMoveClock(std::int16_t half_moves) {
  if (half_moves < 0) return false;
  position_.HalfMoveClock = half_moves;
  return true;
}

void ChessGame::FollowEdit() { targets_.Castles = GenerateTargets(position_, selection_).Castles; }

}  // namespace brontavia
