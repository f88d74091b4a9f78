#include "games/chess/attack.h"

#include "games/chess/piece_steps.h"

namespace brontavia {
namespace {

constexpr int kWhitePawn = PieceOf(kPawn, Colour::White);
constexpr int kBlackPawn = PieceOf(kPawn, Colour::Black);

bool AnswersAttacked(const ChessSelection& attacker, Coordinate square) {
  if (attacker.Piece == kWhitePawn) return false;
  return attacker.Piece != kBlackPawn || attacker.Source.Column != square.Column;
}

}  // namespace

bool IsSquareAttacked(const ChessPosition& position, Coordinate square, std::optional<Colour> colour,
                      std::optional<Coordinate> lifted) {
  if (lifted) {
    ChessPosition without = position;
    without.Board.Put(*lifted, kNoPiece);
    return IsSquareAttacked(without, square, colour);
  }
  const ChessBoard& board = position.Board;
  if (!colour) colour = board.ColourAt(square);
  if (!colour) return false;
  const Colour attackers = OpponentOf(*colour);
  // The last one that can go there has the say, so the look begins with it.
  for (int column = kBoardSide; column >= 1; --column) {
    for (int row = kBoardSide; row >= 1; --row) {
      const Coordinate source{.Column = column, .Row = row};
      const int piece = board.At(source);
      if (piece == kNoPiece || ColourOf(piece) != attackers) continue;
      const ChessSelection attacker{.Source = source, .Piece = piece};
      if (CanStepTo(position, attacker, square)) return AnswersAttacked(attacker, square);
    }
  }
  return false;
}

}  // namespace brontavia
