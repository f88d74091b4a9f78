#include "games/chess/chess_move.h"

#include <limits>

#include "games/chess/attack.h"

namespace brontavia {
namespace {

constexpr int kRookColumnLong = 1;
constexpr int kRookColumnShort = kBoardSide;

void CountUp(std::int16_t& counter) {
  if (counter < std::numeric_limits<std::int16_t>::max()) ++counter;
}

bool IsDoubleStep(const ChessMove& move) {
  const Colour colour = ColourOf(move.Moved.Piece);
  const int second_row = BackRow(colour) + ForwardStep(colour);
  return KindOf(move.Moved.Piece) == kPawn && move.Moved.Source.Row == second_row &&
         move.Target.Row == second_row + 2 * ForwardStep(colour);
}

// The square behind `square` as a pawn of `colour` sees it.
Coordinate Behind(Coordinate square, Colour colour) {
  return {.Column = square.Column, .Row = square.Row - ForwardStep(colour)};
}

bool StandsBeside(const ChessBoard& board, Coordinate square, int piece) {
  return board.At({square.Column - 1, square.Row}) == piece || board.At({square.Column + 1, square.Row}) == piece;
}

// Moves the rook of a castling to the square that the king has jumped over.
RookMove MoveCastlingRook(ChessBoard& board, Coordinate king_target, Colour colour) {
  const bool is_short = king_target.Column > kBoardSide / 2;
  const RookMove rook{.Source = {is_short ? kRookColumnShort : kRookColumnLong, king_target.Row},
                      .Target = {king_target.Column + (is_short ? -1 : 1), king_target.Row}};
  board.Put(rook.Source, kNoPiece);
  board.Put(rook.Target, PieceOf(kRook, colour));
  return rook;
}

void ClearCastlingOfRook(CastleRights& rights, Coordinate source, Colour colour) {
  if (source.Row != BackRow(colour)) return;
  if (source.Column == kRookColumnLong) rights.Long = false;
  if (source.Column == kRookColumnShort) rights.Short = false;
}

// The move stands: what follows from the kind of piece.
void Follow(ChessPosition& position, ChessMove& move, const CastleTargets& castles) {
  const Colour colour = ColourOf(move.Moved.Piece);
  std::optional<Coordinate>& offered = position.EnPassantSquares[OpponentOf(colour)];
  offered.reset();
  switch (KindOf(move.Moved.Piece)) {
    case kKing:
      position.Castling[colour] = {.Short = false, .Long = false};
      position.KingSquares[colour] = move.Target;
      if (move.Target == castles.Short || move.Target == castles.Long) {
        move.CastlingRook = MoveCastlingRook(position.Board, move.Target, colour);
      }
      break;
    case kRook:
      ClearCastlingOfRook(position.Castling[colour], move.Moved.Source, colour);
      break;
    case kPawn:
      move.EnPassantOffered =
          IsDoubleStep(move) && StandsBeside(position.Board, move.Target, PieceOf(kPawn, OpponentOf(colour)));
      if (move.EnPassantOffered) offered = Behind(move.Target, colour);
      move.PromotionPending = move.Target.Row == BackRow(OpponentOf(colour));
      break;
    default:
      break;
  }
}

}  // namespace

std::optional<ChessMove> ApplyMove(ChessPosition& position, const ChessSelection& selection, Coordinate target,
                                   const CastleTargets& castles) {
  const ChessBoard before = position.Board;
  const Colour colour = ColourOf(selection.Piece);
  ChessMove move{.Moved = selection, .Target = target, .Captured = before.At(target)};
  position.Board.Put(target, selection.Piece);
  position.Board.Put(selection.Source, kNoPiece);
  move.EnPassantCapture = KindOf(selection.Piece) == kPawn && target == position.EnPassantSquares[colour];
  if (move.EnPassantCapture) position.Board.Put(Behind(target, colour), kNoPiece);
  if (IsKingAttacked(position, colour)) {
    position.Board = before;
    return std::nullopt;
  }
  Follow(position, move, castles);
  return move;
}

void CompleteMove(ChessPosition& position, ChessMove& move, int promotion_choice) {
  const Colour colour = ColourOf(move.Moved.Piece);
  if (move.PromotionPending) {
    move.PromotionPending = false;
    move.PromotionChoice = promotion_choice;
    position.Board.Put(move.Target, PieceOf(promotion_choice, colour));
  }
  if (KindOf(move.Moved.Piece) == kPawn || move.Captured != kNoPiece) {
    position.HalfMoveClock = 0;
  } else {
    CountUp(position.HalfMoveClock);
  }
  position.FenEnPassant.reset();
  if (IsDoubleStep(move)) {
    const int column = move.Moved.Source.Column;
    // Saved positions tell the double step of White by a row counted from the column.
    position.FenEnPassant = Coordinate{column, colour == Colour::White ? column + 1 : move.Moved.Source.Row - 1};
  }
}

void PassTurn(ChessPosition& position) {
  if (position.SideToMove == Colour::Black) CountUp(position.MoveNumber);
  position.SideToMove = OpponentOf(position.SideToMove);
}

}  // namespace brontavia
